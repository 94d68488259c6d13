// A file of either format, its numbers big-endian and offsets counted from its start:
//
//     file   = header { entry } and, anywhere behind them, what the entries point at
//     header = magic number (4 bytes) version (4) filler (16) number of entries (2)
//     entry  = id (4; 2 is the resource fork) offset (4) length (4)

#include "toolbox/base/resources/AppleDouble.h"

namespace Toolbox {

namespace {

constexpr std::uint32_t MAGIC_APPLE_SINGLE = 0x00051600;
constexpr std::uint32_t MAGIC_APPLE_DOUBLE = 0x00051607;
constexpr std::uint32_t VERSION_2 = 0x00020000;
constexpr std::size_t VERSION = 4;
constexpr std::size_t ENTRY_COUNT = 24;

constexpr std::size_t ENTRY_LENGTH = 12;
constexpr std::size_t ENTRY_ID = 0;
constexpr std::size_t ENTRY_OFFSET = 4;
constexpr std::size_t ENTRY_FORK_LENGTH = 8;
constexpr std::uint32_t ID_RESOURCE_FORK = 2;

}  // namespace

bool isAppleDouble(const BigEndianBytes& start)
{
    if (!start.holds(0, APPLE_DOUBLE_HEADER_LENGTH))
        return false;
    const std::uint32_t magic = start.number32(0);
    return (magic == MAGIC_APPLE_SINGLE || magic == MAGIC_APPLE_DOUBLE) && start.number32(VERSION) == VERSION_2;
}

std::size_t appleDoubleTableLength(const BigEndianBytes& header)
{
    return header.number16(ENTRY_COUNT) * ENTRY_LENGTH;
}

OSErr findResourceFork(const BigEndianBytes& table, ForkPlace* place)
{
    *place = {};
    for (std::size_t entry = 0; table.holds(entry, ENTRY_LENGTH); entry += ENTRY_LENGTH) {
        if (table.number32(entry + ENTRY_ID) != ID_RESOURCE_FORK)
            continue;
        *place = {table.number32(entry + ENTRY_OFFSET), table.number32(entry + ENTRY_FORK_LENGTH)};
        break;
    }
    if (place->length == 0)
        return errFSForkNotFound;
    return noErr;
}

}  // namespace Toolbox
