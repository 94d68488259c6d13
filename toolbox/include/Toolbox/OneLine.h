// How text from elsewhere is shown.

#ifndef TOOLBOX_ONELINE_H
#define TOOLBOX_ONELINE_H

#include <string>
#include <string_view>

namespace Toolbox {

/// `text` with an escape, such as \n, \x1b or \u202e, for each character that is not seen but does something: it ends
/// the line, commands the terminal or turns the text around it. Bytes that are not UTF-8 are escapes too.
std::string withEscapes(std::string_view text);

/// The same, but of a text of more than 8 KiB, which no path has, the middle is left out, with a word on it. For
/// everything that comes from elsewhere, such as names of files and the texts of alerts.
std::string oneLine(std::string_view text);

/// Whether all of `text` is UTF-8.
bool isUtf8(std::string_view text);

}  // namespace Toolbox

#endif
