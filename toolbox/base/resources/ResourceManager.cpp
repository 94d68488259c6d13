// The Resource Manager: the chain of open files, and the handles of their resources.

#include "toolbox/base/LiveCount.h"
#include "toolbox/base/NeverDestroyed.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/base/files/FileReferences.h"
#include "toolbox/base/memory/MemoryManager.h"
#include "toolbox/base/resources/Forks.h"
#include "toolbox/base/resources/ResourceMap.h"

#include <Carbon/Resources.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>

namespace Toolbox {

namespace {

// Each open file is held in memory, so a caller who never closes one is stopped here.
constexpr std::size_t MAX_OPEN_FILES = 256;

struct LoadedResource {
    Handle handle = nullptr;
    bool isChanged = false;
};

// One opening of a file, with the handles that were asked for.
class ResourceFile {
public:
    explicit ResourceFile(SInt16 refNum)
        : m_refNum(refNum)
    {
    }

    ~ResourceFile()
    {
        for (const auto& [key, resource] : m_loaded)
            freeHandle(resource.handle);
    }

    ResourceFile(const ResourceFile&) = delete;
    ResourceFile& operator=(const ResourceFile&) = delete;

    OSErr read(const std::string& path)
    {
        const OSErr unread = readFork(path, &m_fork);
        return unread != noErr ? unread : readResourceMap(BigEndianBytes(m_fork.data(), m_fork.size()), &m_map);
    }

    SInt16 refNum() const { return m_refNum; }

    bool has(const ResourceKey& key) const { return m_map.count(key) != 0; }

    // The handle of a resource that this has; null if that is compressed, or if there is no memory.
    Handle load(const ResourceKey& key)
    {
        const ResourcePlace& place = m_map.at(key);
        if (place.isCompressed)
            return nullptr;
        Handle& loaded = m_loaded[key].handle;
        if (loaded == nullptr)
            loaded = makeHandle(m_fork.data() + place.offset, place.length);
        return loaded;
    }

    // False when `handle` is not of this file. A changed resource stays as it is.
    bool release(Handle handle)
    {
        const auto loaded = findLoaded(handle);
        if (loaded == m_loaded.end())
            return false;
        if (!loaded->second.isChanged) {
            freeHandle(handle);
            m_loaded.erase(loaded);
        }
        return true;
    }

    // False when `handle` is not of this file.
    bool markChanged(Handle handle)
    {
        const auto loaded = findLoaded(handle);
        if (loaded == m_loaded.end())
            return false;
        loaded->second.isChanged = true;
        return true;
    }

private:
    using LoadedResources = std::map<ResourceKey, LoadedResource>;

    LoadedResources::iterator findLoaded(Handle handle)
    {
        return std::find_if(
            m_loaded.begin(), m_loaded.end(), [=](const auto& loaded) { return loaded.second.handle == handle; });
    }

    const SInt16 m_refNum;
    std::vector<UInt8> m_fork;
    ResourceMap m_map;
    LoadedResources m_loaded;
    const LiveCount m_alive{"resource file"};
};

using Chain = std::vector<std::unique_ptr<ResourceFile>>;

// The open files in the order in which they were opened; the last one is the current one.
Chain& chain()
{
    return neverDestroyed<struct OpenFiles, Chain>();
}

Chain::iterator findFile(SInt16 refNum)
{
    return std::find_if(chain().begin(), chain().end(), [=](const auto& file) { return file->refNum() == refNum; });
}

// From 1 on. A number is given out again only after all others, so that the number of a closed file finds nothing.
SInt16 nextRefNum()
{
    static SInt16 last = 0;
    do
        last = last == std::numeric_limits<SInt16>::max() ? SInt16(1) : static_cast<SInt16>(last + 1);
    while (findFile(last) != chain().end());
    return last;
}

OSErr openFile(const FSRef* reference, UniCharCount forkNameLength, SInt8 permissions, SInt16* refNum)
{
    if (refNum != nullptr)
        *refNum = kResFileNotOpened;
    if (reference == nullptr || refNum == nullptr)
        return paramErr;
    const std::optional<std::string> path = pathOf(reference);
    if (!path)
        return errFSBadFSRef;
    if (forkNameLength != 0)
        return errFSBadForkName;
    if (permissions != fsCurPerm && permissions != fsRdPerm)
        return permErr;
    if (chain().size() == MAX_OPEN_FILES)
        return tmfoErr;

    auto file = std::make_unique<ResourceFile>(nextRefNum());
    const OSErr unread = file->read(*path);
    if (unread != noErr)
        return unread;
    chain().push_back(std::move(file));
    *refNum = chain().back()->refNum();
    return noErr;
}

Handle findResource(const ResourceKey& key)
{
    const auto file = std::find_if(chain().rbegin(), chain().rend(), [&](const auto& each) { return each->has(key); });
    return file == chain().rend() ? nullptr : (*file)->load(key);
}

// Does `action` for one file after the other, until one says that `handle` was its own.
template <typename Action> void withFileOf(Handle handle, Action action)
{
    for (auto file = chain().begin(); handle != nullptr && file != chain().end() && !action(*file); ++file) { }
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

OSErr FSOpenResourceFile(
    const FSRef* file, UniCharCount forkNameLength, const UniChar* forkName, SInt8 permissions, SInt16* refNum)
{
    TracedCall call("FSOpenResourceFile", file, forkNameLength, forkName, permissions, refNum);
    return call.gives(orMemFull([=] { return openFile(file, forkNameLength, permissions, refNum); }));
}

void CloseResFile(SInt16 refNum)
{
    const TracedCall call("CloseResFile", refNum);
    const auto file = findFile(refNum);
    if (file != chain().end())
        chain().erase(file);
}

Handle GetResource(ResType type, SInt16 id)
{
    TracedCall call("GetResource", type, id);
    Handle handle = nullptr;
    orMemFull([&] {
        handle = findResource(ResourceKey(type, id));
        return noErr;
    });
    return call.gives(handle);
}

void ReleaseResource(Handle resource)
{
    const TracedCall call("ReleaseResource", resource);
    withFileOf(resource, [=](const auto& file) { return file->release(resource); });
}

void ChangedResource(Handle resource)
{
    const TracedCall call("ChangedResource", resource);
    withFileOf(resource, [=](const auto& file) { return file->markChanged(resource); });
}
