#include "toolbox/core/bundles/ELFFile.h"

#include "toolbox/base/files/InputFile.h"

#include <link.h>

#include <cstring>
#include <vector>

namespace Toolbox {

namespace {

using FileHeader = ElfW(Ehdr);  // of this machine's width; the loader takes no other
using Segment = ElfW(Phdr);

// Reads the record at `offset`; false where the file ends before it does.
template <typename Record> bool readRecord(const InputFile& file, std::uint64_t offset, Record* record)
{
    std::vector<UInt8> bytes;
    if (file.read(offset, sizeof *record, &bytes) != noErr || bytes.size() != sizeof *record)
        return false;
    std::memcpy(record, bytes.data(), sizeof *record);
    return true;
}

bool isThere(const Segment& segment, std::uint64_t fileSize)
{
    if (segment.p_type != PT_LOAD)
        return true;
    return segment.p_offset <= fileSize && segment.p_filesz <= fileSize - segment.p_offset;
}

}  // namespace

bool isWholeELFFile(const std::filesystem::path& path)
{
    InputFile file;
    FileHeader header;
    if (file.open(path) != noErr || !readRecord(file, 0, &header) || header.e_phentsize != sizeof(Segment))
        return false;
    for (unsigned index = 0; index < header.e_phnum; ++index) {
        Segment segment;
        if (!readRecord(file, header.e_phoff + index * sizeof segment, &segment) || !isThere(segment, file.length()))
            return false;
    }
    return true;
}

}  // namespace Toolbox
