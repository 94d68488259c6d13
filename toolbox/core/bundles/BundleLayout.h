// Where things lie in a bundle's folder. Nothing outside the folder is ever found, whatever an Info.plist, a name or a
// symbolic link says.

#ifndef TOOLBOX_CORE_BUNDLES_BUNDLELAYOUT_H
#define TOOLBOX_CORE_BUNDLES_BUNDLELAYOUT_H

#include <filesystem>

namespace Toolbox {

/// The places of one kind of bundle, as paths from its folder.
struct BundleLayout {
    const char* info;
    const char* resources;
    const char* builtInPlugIns;
};

/// The layout of the bundle in the folder `root`: things lie in "Contents" if it is there, else in "Resources", else at
/// the top. In a framework "Resources" comes first.
const BundleLayout& layoutOf(const std::filesystem::path& root);

/// The real path of the file `name`, if it is the bundle's executable: in "Contents/Linux", else in "Contents", else at
/// the top. Empty when there is none.
std::filesystem::path findExecutable(const std::filesystem::path& root, const std::string& name);

/// The real path of `relative` in the folder `root`, which must be a real path itself: absolute, without symbolic
/// links. Empty when nothing is there, when `relative` is absolute or has "..", and when a link leads out of `root`.
std::filesystem::path findInside(const std::filesystem::path& root, const std::filesystem::path& relative);

}  // namespace Toolbox

#endif
