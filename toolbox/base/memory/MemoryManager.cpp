// Pointers, handles and raw bytes. Blocks are known by their addresses and looked up, never followed, so that a dead or
// foreign pointer or handle does no harm.

#include "toolbox/base/memory/MemoryManager.h"

#include "toolbox/base/LiveCount.h"
#include "toolbox/base/NeverDestroyed.h"
#include "toolbox/base/TracedCall.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <unordered_map>
#include <utility>

namespace Toolbox {

namespace {

struct FreeBlock {
    void operator()(char* block) const { std::free(block); }
};

using Block = std::unique_ptr<char[], FreeBlock>;

// `size` zero bytes; a size of 0 too has an address of its own. Throws std::bad_alloc.
Block makeBlock(std::size_t size)
{
    // calloc, since a large block then comes from the system as zeros and need not be cleared.
    Block block(static_cast<char*>(std::calloc(size == 0 ? 1 : size, 1)));
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

struct Pointer {
    explicit Pointer(Block given)
        : block(std::move(given))
    {
    }

    const Block block;
    const LiveCount alive{"pointer"};
};

// What is still allocated when the process ends may still be in use, here and among the handles.
std::unordered_map<Ptr, Pointer>& pointers()
{
    return neverDestroyed<struct Pointers, std::unordered_map<Ptr, Pointer>>();
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
    return neverDestroyed<struct Handles, std::unordered_map<Handle, std::unique_ptr<HandleBlock>>>();
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

Ptr NewPtr(Size size)
{
    TracedCall call("NewPtr", size);
    Ptr block = nullptr;
    orMemFull([&] { return newPtr(size, &block); });
    return call.gives(block);
}

void DisposePtr(Ptr block)
{
    const TracedCall call("DisposePtr", block);
    pointers().erase(block);
}

Size GetHandleSize(Handle handle)
{
    TracedCall call("GetHandleSize", handle);
    const auto found = handles().find(handle);
    return call.gives(found == handles().end() ? Size(0) : found->second->size);
}

// No block ever moves here, so nothing is left of a lock.

void HLock(Handle handle)
{
    const TracedCall call("HLock", handle);
}

void HUnlock(Handle handle)
{
    const TracedCall call("HUnlock", handle);
}

void BlockMoveData(const void* source, void* destination, Size count)
{
    const TracedCall call("BlockMoveData", source, destination, count);
    if (source != nullptr && destination != nullptr && count > 0)
        std::memmove(destination, source, static_cast<std::size_t>(count));
}

Boolean BitTst(const void* bytes, long bit)
{
    TracedCall call("BitTst", bytes, bit);
    if (bytes == nullptr || bit < 0)
        return call.gives(Boolean(0));
    const unsigned byte = static_cast<const UInt8*>(bytes)[bit / 8];
    return call.gives(static_cast<Boolean>((byte & (0x80U >> (bit % 8))) != 0));
}
