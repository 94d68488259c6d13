// The folders that each language has in a bundle.

#ifndef TOOLBOX_CORE_BUNDLES_LANGUAGEFOLDERS_H
#define TOOLBOX_CORE_BUNDLES_LANGUAGEFOLDERS_H

#include <QStringList>

namespace Toolbox {

/// The names of the folders for `languages`, in the order in which they are looked at: for each language its own, its
/// region's before its general one, and the long name that many languages had at first: for "de-AT" that is
/// "de-AT.lproj", "de_AT.lproj", "de.lproj", "German.lproj". A language may be given by any of these names.
QStringList languageFolders(const QStringList& languages);

}  // namespace Toolbox

#endif
