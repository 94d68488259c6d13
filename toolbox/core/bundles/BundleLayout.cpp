#include "toolbox/core/bundles/BundleLayout.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace Toolbox {

namespace {

constexpr BundleLayout IN_CONTENTS = {"Contents/Info.plist", "Contents/Resources", "Contents/PlugIns"};
constexpr BundleLayout IN_RESOURCES = {"Resources/Info.plist", "Resources", "PlugIns"};
constexpr BundleLayout AT_THE_TOP = {"Info.plist", "", "PlugIns"};

// By the name that Core Foundation has for this platform; executables of others lie beside it.
constexpr const char* EXECUTABLE_FOLDERS[] = {"Contents/Linux", "Contents", ""};

bool hasFolder(const fs::path& root, const char* name)
{
    std::error_code unreachable;
    return fs::is_directory(findInside(root, name), unreachable);
}

}  // namespace

const BundleLayout& layoutOf(const fs::path& root)
{
    const bool isFramework = root.extension() == ".framework";
    if (isFramework && hasFolder(root, "Resources"))
        return IN_RESOURCES;
    if (hasFolder(root, "Contents"))
        return IN_CONTENTS;
    return hasFolder(root, "Resources") ? IN_RESOURCES : AT_THE_TOP;
}

fs::path findExecutable(const fs::path& root, const std::string& name)
{
    for (const char* const folder : EXECUTABLE_FOLDERS) {
        fs::path file = findInside(root, fs::path(folder) / name);
        std::error_code unreachable;
        if (fs::is_regular_file(file, unreachable))
            return file;
    }
    return {};
}

fs::path findInside(const fs::path& root, const fs::path& relative)
{
    const bool leadsOut = relative.is_absolute() || std::find(relative.begin(), relative.end(), "..") != relative.end();
    if (relative.empty() || leadsOut)
        return {};
    std::error_code missing;
    fs::path real = fs::canonical(root / relative, missing);
    const bool isInside = std::mismatch(root.begin(), root.end(), real.begin(), real.end()).first == root.end();
    return isInside ? real : fs::path();
}

}  // namespace Toolbox
