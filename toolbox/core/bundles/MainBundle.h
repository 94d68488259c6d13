// The running application's bundle, as the rest of the toolbox reads resources from it.

#ifndef TOOLBOX_CORE_BUNDLES_MAINBUNDLE_H
#define TOOLBOX_CORE_BUNDLES_MAINBUNDLE_H

#include <QString>

#include <filesystem>

namespace Toolbox {

/// What the running application is called: the CFBundleName of the main bundle. Empty when there is none.
QString mainBundleName();

/// The path of the resource `name`.`type` of the main bundle, in the folder `subfolder` of its resources if one is
/// given; searched for as CFBundleCopyResourceURL does. A resource may be a folder; what lies in it is found with the
/// folder as `subfolder`, so that no symbolic link leads out of the bundle there either:
/// mainBundleResource("objects", "xib", "About.nib"). Empty when there is no main bundle or no such resource.
std::filesystem::path mainBundleResource(
    const QString& name, const QString& type, const QString& subfolder = QString());

}  // namespace Toolbox

#endif
