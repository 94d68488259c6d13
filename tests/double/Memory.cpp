// The Memory Manager and the Resource Manager.

#include "tests/double/Call.h"
#include "tests/double/State.h"

#include <Carbon/Carbon.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

using namespace ToolboxDouble;

namespace {

// How far a resource's block can be read past its end.
const std::size_t RESOURCE_SLACK = 1024;

struct Block : Object {
    void end() override
    {
        Object::end();
        poison(words);
    }

    std::vector<const void*> words;
};

// A handle is the address of the master pointer.
struct ResourceHandle : Object {
    std::string condition() const override { return locked ? " locked" : ""; }

    void end() override
    {
        Object::end();
        poison(data);
    }

    void move() override
    {
        if (locked || !alive)
            return;
        left.push_back(data);
        data.swap(left.back());
        poison(left.back());
        master = data.data();
    }

    std::vector<char> data;
    std::vector<std::vector<char>> left;  // where the data lay before
    Ptr master = nullptr;
    bool locked = false;
};

// "handle1 + 401", if the address lies in a resource's block.
std::string place(const void* address)
{
    for (const auto& object : state().objects) {
        const auto* const handle = dynamic_cast<const ResourceHandle*>(object.get());
        if (handle == nullptr)
            continue;
        const auto offset =
            reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(handle->master);
        if (offset < handle->data.size())
            return nameOf(handle->reference) + " + " + std::to_string(offset);
    }
    return "unknown";
}

std::string hexadecimal(const void* bytes, Size count)
{
    std::string text;
    for (Size i = 0; i < count; ++i) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02X", static_cast<const unsigned char*>(bytes)[i]);
        text += digits;
    }
    return text;
}

void setLocked(const Call& call, Handle handle, bool locked)
{
    if (!call.fails())
        the<ResourceHandle>(handle).locked = locked;
}

}  // namespace

Ptr NewPtr(Size size)
{
    Call call("NewPtr", size);
    if (call.fails())
        return call.returns<Ptr>(nullptr);
    auto block = std::make_unique<Block>();
    block->words.assign((static_cast<std::size_t>(size) + sizeof(void*) - 1) / sizeof(void*), state().newBlockWord);
    void* const bytes = block->words.data();
    add(std::move(block), numbered("block"), bytes);
    return call.returns(static_cast<Ptr>(bytes));
}

void DisposePtr(Ptr block)
{
    Call call("DisposePtr", block);
    dispose<Block>(call, block);
}

void HLock(Handle handle)
{
    const Call call("HLock", handle);
    setLocked(call, handle, true);
}

void HUnlock(Handle handle)
{
    const Call call("HUnlock", handle);
    setLocked(call, handle, false);
}

void BlockMoveData(const void* source, void* destination, Size count)
{
    Call call(
        "BlockMoveData", [&] { return place(source); }, count);
    std::memmove(destination, source, static_cast<std::size_t>(count));
    call.append(" -> " + hexadecimal(destination, count));
}

Boolean BitTst(const void* bytes, long bit)
{
    Call call(
        "BitTst", [&] { return hexadecimal(bytes, bit / 8 + 1); }, bit);
    const UInt8 byte = static_cast<const UInt8*>(bytes)[bit / 8];
    return call.returns<Boolean>((byte & 0x80 >> bit % 8) != 0);
}

Handle GetResource(ResType type, SInt16 id)
{
    Call call("GetResource", Code{type}, id);
    if (call.fails())
        return call.returns<Handle>(nullptr);
    for (const ResourceData& resource : state().resources) {
        if (resource.type != type || resource.id != id)
            continue;
        auto handle = std::make_unique<ResourceHandle>();
        handle->data.assign(resource.data.begin(), resource.data.end());
        handle->data.resize(handle->data.size() + RESOURCE_SLACK);
        handle->master = handle->data.data();
        const Handle reference = &handle->master;
        add(std::move(handle), numbered("handle"), reference);
        return call.returns(reference);
    }
    return call.returns<Handle>(nullptr);
}

void ReleaseResource(Handle resource)
{
    Call call("ReleaseResource", resource);
    dispose<ResourceHandle>(call, resource);
}
