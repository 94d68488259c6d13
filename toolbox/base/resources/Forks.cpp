#include "toolbox/base/resources/Forks.h"

#include "toolbox/base/files/InputFile.h"
#include "toolbox/base/resources/AppleDouble.h"
#include "toolbox/base/resources/ResourceMap.h"

namespace Toolbox {

namespace {

BigEndianBytes view(const std::vector<UInt8>& bytes)
{
    return BigEndianBytes(bytes.data(), bytes.size());
}

OSErr readPart(const InputFile& file, std::uint64_t offset, std::uint64_t length, std::vector<UInt8>* bytes)
{
    if (offset + length > file.length() || length > MAX_FORK_LENGTH)
        return mapReadErr;
    return file.read(offset, static_cast<std::size_t>(length), bytes);
}

// From an AppleDouble file with this `header`. `*bytes` is also where its table of entries is read to on the way.
OSErr readResourceForkIn(const InputFile& file, const BigEndianBytes& header, std::vector<UInt8>* bytes)
{
    const OSErr noTable = readPart(file, APPLE_DOUBLE_HEADER_LENGTH, appleDoubleTableLength(header), bytes);
    if (noTable != noErr)
        return noTable;
    ForkPlace place;
    const OSErr noFork = findResourceFork(view(*bytes), &place);
    return noFork != noErr ? noFork : readPart(file, place.offset, place.length, bytes);
}

}  // namespace

OSErr readFork(const std::string& path, std::vector<UInt8>* bytes)
{
    InputFile file;
    const OSErr unopened = file.open(path);
    if (unopened != noErr)
        return unopened;
    std::vector<UInt8> start;
    const OSErr unreadable = file.read(0, APPLE_DOUBLE_HEADER_LENGTH, &start);
    if (unreadable != noErr)
        return unreadable;
    if (isAppleDouble(view(start)))
        return readResourceForkIn(file, view(start), bytes);
    return readPart(file, 0, file.length(), bytes);
}

}  // namespace Toolbox
