#include "toolbox/core/core_foundation/URLObject.h"

#include "toolbox/base/TracedCall.h"
#include "toolbox/base/files/FileReferences.h"
#include "toolbox/core/core_foundation/StringObject.h"

#include <cstring>
#include <optional>
#include <string>

namespace fs = std::filesystem;

namespace Toolbox {

namespace {

std::filesystem::path withoutSlashAtEnd(const std::filesystem::path& path)
{
    std::string text = path.native();
    while (text.size() > 1 && text.back() == '/')
        text.pop_back();
    return text;
}

}  // namespace

URLObject::URLObject(const std::filesystem::path& path)
    : m_path(withoutSlashAtEnd(path))
{
}

bool URLObject::equals(const CFObject& other) const
{
    const auto* const url = dynamic_cast<const URLObject*>(&other);
    return url != nullptr && url->m_path.native() == m_path.native();
}

std::string URLObject::traceName() const
{
    return quoted(QString::fromStdString(m_path.native()));
}

CFURLRef createURL(const std::filesystem::path& path)
{
    return path.empty() ? nullptr : referenceTo<CFURLRef>(*new URLObject(path));
}

namespace {

CFURLRef createFromReference(const FSRef* file)
{
    const std::optional<std::string> path = pathOf(file);
    return path.has_value() ? createURL(*path) : nullptr;
}

CFURLRef createFromPath(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        return nullptr;
    std::error_code noWorkingDirectory;
    const fs::path absolute = fs::absolute(path, noWorkingDirectory);
    return noWorkingDirectory ? nullptr : createURL(absolute);
}

// As texts: a path object would take a component that begins with a slash for another absolute path.
std::string joined(const std::string& folder, const std::string& name)
{
    const bool needsSlash = name.empty() || name.front() != '/';
    return (folder == "/" ? "" : folder) + (needsSlash ? "/" : "") + name;
}

CFURLRef createWithComponent(const URLObject* url, CFStringRef component)
{
    const auto* const string = findObject<StringObject>(component);
    if (url == nullptr || string == nullptr)
        return nullptr;
    const std::optional<std::string> name = fileName(string->text());
    return name.has_value() ? createURL(joined(url->path(), *name)) : nullptr;
}

Boolean copyPath(const URLObject* url, UInt8* path, CFIndex size)
{
    if (url == nullptr || path == nullptr)
        return false;
    const std::string& text = url->path().native();
    if (size < 0 || static_cast<std::size_t>(size) <= text.size())
        return false;
    std::memcpy(path, text.c_str(), text.size() + 1);
    return true;
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

CFURLRef CFURLCreateFromFSRef(CFAllocatorRef allocator, const FSRef* file)
{
    TracedCall call("CFURLCreateFromFSRef", allocator, file);
    return call.gives(createFromReference(file));
}

Boolean CFURLGetFSRef(CFURLRef url, FSRef* file)
{
    TracedCall call("CFURLGetFSRef", url, file);
    const auto* const found = findObject<URLObject>(url);
    if (found == nullptr || file == nullptr)
        return call.gives<Boolean>(false);
    return call.gives<Boolean>(makeFileReference(found->path(), file) == noErr);
}

CFURLRef CFURLCreateFromFileSystemRepresentation(
    CFAllocatorRef allocator, const UInt8* path, CFIndex length, Boolean isFolder)
{
    TracedCall call("CFURLCreateFromFileSystemRepresentation", allocator, path, length, isFolder);
    if (path == nullptr || length <= 0)
        return call.gives<CFURLRef>(nullptr);
    const std::string text(reinterpret_cast<const char*>(path), static_cast<std::size_t>(length));
    return call.gives(createFromPath(text));
}

CFURLRef CFURLCreateCopyAppendingPathComponent(
    CFAllocatorRef allocator, CFURLRef url, CFStringRef component, Boolean isFolder)
{
    TracedCall call("CFURLCreateCopyAppendingPathComponent", allocator, url, component, isFolder);
    return call.gives(createWithComponent(findObject<URLObject>(url), component));
}

Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean resolve, UInt8* path, CFIndex size)
{
    TracedCall call("CFURLGetFileSystemRepresentation", url, resolve, path, size);
    return call.gives(copyPath(findObject<URLObject>(url), path, size));
}
