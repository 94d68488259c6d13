// AppleDouble and AppleSingle, version 2: files that carry a Mac file's forks as entries. Only the resource fork is
// looked for here.

#ifndef TOOLBOX_BASE_RESOURCES_APPLEDOUBLE_H
#define TOOLBOX_BASE_RESOURCES_APPLEDOUBLE_H

#include "toolbox/base/BigEndianBytes.h"

#include <Carbon/Files.h>

namespace Toolbox {

/// The bytes before the table of entries: magic number, version, filler, number of entries.
constexpr std::size_t APPLE_DOUBLE_HEADER_LENGTH = 26;

/// Whether `start`, the first bytes of a file, begins an AppleDouble or AppleSingle file of version 2.
bool isAppleDouble(const BigEndianBytes& start);

/// The length of the table of entries that follows the header, in bytes. `header` is a whole one.
std::size_t appleDoubleTableLength(const BigEndianBytes& header);

/// Where a fork lies in its file, in bytes.
struct ForkPlace {
    std::uint32_t offset;
    std::uint32_t length;
};

/// Puts into `*place` where the first resource fork of the entries in `table` lies.
/// Returns noErr, or errFSForkNotFound when there is none or it is empty.
OSErr findResourceFork(const BigEndianBytes& table, ForkPlace* place);

}  // namespace Toolbox

#endif
