// What on the Mac the system knows by itself: where the running application and the system's frameworks are, which the
// toolbox is told and which is never taken from the environment or the working directory; and the user's languages.

#ifndef TOOLBOX_APPLICATION_H
#define TOOLBOX_APPLICATION_H

#include <string>
#include <vector>

namespace Toolbox {

/// Makes the bundle in `folder` the main bundle, in place of one named before. A relative path is taken from the
/// working directory of this moment. False when there is no such folder, with the main bundle as it was.
bool SetMainBundle(const std::string& folder);

/// Makes `folder` the system's frameworks folder, in place of one named before; an empty name leaves none. It need not
/// exist: FSFindFolder looks when it is asked. A relative path is made absolute now, links are kept as they are named.
void SetFrameworksFolder(const std::string& folder);

/// The languages in which the user wants to read, the best first, as "de-AT": those of the list in LANGUAGE, then that
/// of the locale for messages, which LC_ALL, LC_MESSAGES or LANG names. None where that is the locale of no language,
/// "C", whose users want no translations.
std::vector<std::string> UserLanguages();

}  // namespace Toolbox

#endif
