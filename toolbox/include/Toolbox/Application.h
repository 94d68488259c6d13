// Tells the toolbox what on the Mac the system knows by itself: where the running application and the system's
// frameworks are. Nothing of this is ever taken from the environment or the working directory.

#ifndef TOOLBOX_APPLICATION_H
#define TOOLBOX_APPLICATION_H

#include <string>

namespace Toolbox {

/// Makes the bundle in `folder` the main bundle, in place of one named before. A relative path is taken from the
/// working directory of this moment. False when there is no such folder, with the main bundle as it was.
bool SetMainBundle(const std::string& folder);

/// Makes `folder` the system's frameworks folder, in place of one named before; an empty name leaves none. It need not
/// exist: FSFindFolder looks when it is asked. A relative path is made absolute now, links are kept as they are named.
void SetFrameworksFolder(const std::string& folder);

}  // namespace Toolbox

#endif
