// Mac OS Roman, the Mac's 8-bit text: 256 bytes to 256 code points, one to one, ASCII below 128.

#ifndef TOOLBOX_BASE_TEXT_ENCODING_MACROMAN_H
#define TOOLBOX_BASE_TEXT_ENCODING_MACROMAN_H

#include <Carbon/MacTypes.h>

#include <cstddef>

namespace Toolbox {

/// Converts all of the `count` bytes of `text` into as many units of `unicode`.
void macRomanToUnicode(const UInt8* text, std::size_t count, UniChar* unicode);

/// Converts the `count` units of `unicode` into as many bytes of `text`, up to the first unit that Mac OS Roman lacks.
/// Returns how many were converted.
std::size_t unicodeToMacRoman(const UniChar* unicode, std::size_t count, UInt8* text);

}  // namespace Toolbox

#endif
