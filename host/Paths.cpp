#include "host/Paths.h"

#include <link.h>

#include <algorithm>

namespace Host {

namespace fs = std::filesystem;

fs::path supportFolder()
{
    // Not from the name that the program was called by, which may be anything.
    std::error_code ignored;  // there is no path then, and nothing is found beside it
    return fs::read_symlink("/proc/self/exe", ignored).parent_path();
}

fs::path placeOf(const fs::path& name, std::error_code& error)
{
    return fs::weakly_canonical(fs::absolute(name, error), error);
}

bool areOne(const fs::path& one, const fs::path& other)
{
    std::error_code error;
    return fs::equivalent(one, other, error) || placeOf(one, error) == placeOf(other, error);
}

bool isInside(const fs::path& folder, const fs::path& path)
{
    std::error_code missing;
    const fs::path root = fs::canonical(folder, missing);
    const fs::path real = missing ? fs::path() : fs::canonical(path, missing);
    return !missing && std::mismatch(root.begin(), root.end(), real.begin(), real.end()).first == root.end();
}

bool holds(const fs::path& folder, const fs::path& file)
{
    std::error_code error;
    if (isInside(folder, placeOf(file, error).parent_path()))
        return true;
    if (!fs::exists(file, error))
        return false;
    for (fs::recursive_directory_iterator each(folder, fs::directory_options::skip_permission_denied, error), end;
         !error && each != end; each.increment(error)) {
        std::error_code missing;
        if (fs::equivalent(each->path(), file, missing))
            return true;
    }
    return false;
}

bool isLoaded(const fs::path& file)
{
    const auto isThatFile = [](dl_phdr_info* loaded, std::size_t, void* sought) {
        std::error_code missing;  // as the program itself is, which has no name here
        return fs::equivalent(loaded->dlpi_name, *static_cast<const fs::path*>(sought), missing) ? 1 : 0;
    };
    fs::path sought = file;
    return dl_iterate_phdr(isThatFile, &sought) != 0;
}

}  // namespace Host
