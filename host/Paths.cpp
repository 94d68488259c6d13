#include "host/Paths.h"

#include <algorithm>
#include <system_error>

namespace Host {

namespace fs = std::filesystem;

fs::path supportFolder()
{
    // Not from the name that the program was called by, which may be anything.
    std::error_code ignored;  // there is no path then, and nothing is found beside it
    return fs::read_symlink("/proc/self/exe", ignored).parent_path();
}

fs::path placeOf(const fs::path& name)
{
    std::error_code error;
    return fs::weakly_canonical(fs::absolute(name, error), error);
}

bool areOne(const fs::path& one, const fs::path& other)
{
    std::error_code error;
    return fs::equivalent(one, other, error) || placeOf(one) == placeOf(other);
}

bool isInside(const fs::path& folder, const fs::path& path)
{
    std::error_code missing;
    const fs::path root = fs::canonical(folder, missing);
    const fs::path real = missing ? fs::path() : fs::canonical(path, missing);
    return !missing && std::mismatch(root.begin(), root.end(), real.begin(), real.end()).first == root.end();
}

}  // namespace Host
