// Texts as they stand in a line of the trace.

#ifndef TOOLBOX_CORE_CORE_FOUNDATION_QUOTED_H
#define TOOLBOX_CORE_CORE_FOUNDATION_QUOTED_H

#include <QString>

#include <string>

namespace Toolbox {

/// `text` in quotes and in UTF-8, on one line: what does not print is escaped as \uXXXX, and of a long text there is
/// only the beginning.
std::string quoted(const QString& text);

}  // namespace Toolbox

#endif
