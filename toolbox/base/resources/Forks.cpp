#include "toolbox/base/resources/Forks.h"

#include "toolbox/base/files/InputFile.h"
#include "toolbox/base/resources/AppleDouble.h"
#include "toolbox/base/resources/ResourceMap.h"

#include <filesystem>

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

OSErr readDataFork(const InputFile& file, std::vector<UInt8>* bytes)
{
    std::vector<UInt8> start;
    const OSErr unreadable = file.read(0, APPLE_DOUBLE_HEADER_LENGTH, &start);
    if (unreadable != noErr)
        return unreadable;
    if (isAppleDouble(view(start)))
        return readResourceForkIn(file, view(start), bytes);
    return readPart(file, 0, file.length(), bytes);
}

OSErr readAppleDouble(const std::string& path, std::vector<UInt8>* bytes)
{
    InputFile file;
    const OSErr unopened = file.open(path);
    if (unopened == fnfErr)
        return errFSForkNotFound;
    if (unopened != noErr)
        return unopened;
    std::vector<UInt8> header;
    const OSErr unreadable = file.read(0, APPLE_DOUBLE_HEADER_LENGTH, &header);
    if (unreadable != noErr)
        return unreadable;
    if (header.size() < APPLE_DOUBLE_HEADER_LENGTH)
        return eofErr;
    if (!isAppleDouble(view(header)))
        return mapReadErr;
    return readResourceForkIn(file, view(header), bytes);
}

std::string appleDoubleBeside(const std::filesystem::path& path)
{
    return (path.parent_path() / ("._" + path.filename().string())).string();
}

}  // namespace

OSErr readFork(const std::string& path, Fork fork, std::vector<UInt8>* bytes)
{
    InputFile file;
    const OSErr unopened = file.open(path);
    if (unopened != noErr)
        return unopened;
    return fork == Fork::Data ? readDataFork(file, bytes) : readAppleDouble(appleDoubleBeside(path), bytes);
}

}  // namespace Toolbox
