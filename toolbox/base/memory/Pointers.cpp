// NewPtr and DisposePtr.

#include <Carbon/MacMemory.h>

#include "toolbox/base/LiveCount.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/base/memory/Block.h"
#include "toolbox/base/memory/MemError.h"
#include "toolbox/base/memory/OrMemFull.h"

#include <unordered_map>
#include <utility>

namespace Toolbox {

namespace {

struct Pointer {
    explicit Pointer(Block given)
        : block(std::move(given))
    {
    }

    const Block block;
    const LiveCount alive{"pointer"};
};

std::unordered_map<Ptr, Pointer>& pointers()
{
    // Never destroyed: what is still allocated when the process ends may still be in use.
    static auto* const all = new std::unordered_map<Ptr, Pointer>;
    return *all;
}

OSErr disposePtr(Ptr pointer)
{
    if (pointers().erase(pointer) == 0)
        return memWZErr;
    return noErr;
}

OSErr newPtr(Size size, Ptr* pointer)
{
    if (size < 0)
        return memFullErr;
    Block block = makeBlock(static_cast<std::size_t>(size));
    const Ptr address = block.get();
    pointers().try_emplace(address, std::move(block));
    *pointer = address;
    return noErr;
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

Ptr NewPtr(Size size)
{
    TracedCall call("NewPtr", size);
    Ptr block = nullptr;
    setMemError(orMemFull([&] { return newPtr(size, &block); }));
    return call.gives(block);
}

void DisposePtr(Ptr block)
{
    const TracedCall call("DisposePtr", block);
    setMemError(disposePtr(block));
}
