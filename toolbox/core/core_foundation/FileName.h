// From texts to the bytes that a file system and a loader know names by.

#ifndef TOOLBOX_CORE_CORE_FOUNDATION_FILENAME_H
#define TOOLBOX_CORE_CORE_FOUNDATION_FILENAME_H

#include <QString>

#include <optional>
#include <string>

namespace Toolbox {

/// `text` in UTF-8. Nothing for a text with a zero, which would end the name early, and with half a surrogate pair,
/// which has no UTF-8: no file and no symbol has such a name.
std::optional<std::string> fileName(const QString& text);

}  // namespace Toolbox

#endif
