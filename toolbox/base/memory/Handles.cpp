#include "toolbox/base/memory/Handles.h"

#include "toolbox/base/LiveCount.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/base/memory/Block.h"
#include "toolbox/base/memory/MemError.h"

#include <cstring>
#include <unordered_map>

namespace Toolbox {

namespace {

struct HandleBlock {
    HandleBlock(const void* data, std::size_t dataSize)
        : block(makeBlock(dataSize + HANDLE_SLACK))
        , master(block.get())
        , size(static_cast<Size>(dataSize))
    {
        if (dataSize != 0)
            std::memcpy(master, data, dataSize);
    }

    const Block block;
    Ptr master;  // the handle is the address of this
    const Size size;
    const LiveCount alive{"handle"};
};

std::unordered_map<Handle, std::unique_ptr<HandleBlock>>& handles()
{
    // Never destroyed: what is still allocated when the process ends may still be in use.
    static auto* const all = new std::unordered_map<Handle, std::unique_ptr<HandleBlock>>;
    return *all;
}

// Looked up by its address, never followed, so that a dead or foreign handle does no harm.
const HandleBlock* findHandle(Handle handle)
{
    const auto found = handles().find(handle);
    const HandleBlock* const block = found == handles().end() ? nullptr : found->second.get();
    if (handle == nullptr)
        setMemError(nilHandleErr);
    else if (block == nullptr)
        setMemError(memWZErr);
    else
        setMemError(noErr);
    return block;
}

}  // namespace

Handle makeHandle(const void* data, std::size_t size)
{
    try {
        auto block = std::make_unique<HandleBlock>(data, size);
        const Handle handle = &block->master;
        handles().emplace(handle, std::move(block));
        return handle;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void freeHandle(Handle handle)
{
    handles().erase(handle);
}

}  // namespace Toolbox

using namespace Toolbox;

Size GetHandleSize(Handle handle)
{
    TracedCall call("GetHandleSize", handle);
    const HandleBlock* const block = findHandle(handle);
    return call.gives(block == nullptr ? Size(0) : block->size);
}

// No block ever moves here, so all that is left of a lock is the check of its handle.

void HLock(Handle handle)
{
    const TracedCall call("HLock", handle);
    findHandle(handle);
}

void HUnlock(Handle handle)
{
    const TracedCall call("HUnlock", handle);
    findHandle(handle);
}
