#include "host/Paths.h"

#include <algorithm>
#include <climits>
#include <string>
#include <system_error>

namespace Host {

namespace {

namespace fs = std::filesystem;

// The running program. Not from its name as it was called, which may be anything.
fs::path ownExecutable()
{
    std::error_code ignored;  // no path, and what is looked for beside it is not found
    return fs::read_symlink("/proc/self/exe", ignored);
}

}  // namespace

CFURLRef createURL(const fs::path& path)
{
    const std::string text = path.string();
    return CFURLCreateFromFileSystemRepresentation(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(text.data()), static_cast<CFIndex>(text.size()), true);
}

fs::path pathOf(CFURLRef url)
{
    UInt8 path[PATH_MAX];
    if (!CFURLGetFileSystemRepresentation(url, true, path, sizeof path))
        return fs::path();
    return fs::path(reinterpret_cast<const char*>(path));
}

bool isInside(const fs::path& folder, const fs::path& path)
{
    std::error_code missing;
    const fs::path root = fs::canonical(folder, missing);
    const fs::path real = missing ? fs::path() : fs::canonical(path, missing);
    return !missing && std::mismatch(root.begin(), root.end(), real.begin(), real.end()).first == root.end();
}

fs::path supportFolder()
{
    return ownExecutable().parent_path();
}

}  // namespace Host
