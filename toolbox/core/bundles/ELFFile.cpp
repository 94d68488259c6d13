#include "toolbox/core/bundles/ELFFile.h"

#include <fstream>

#include <link.h>

namespace Toolbox {

namespace {

using FileHeader = ElfW(Ehdr);  // of this machine's width; the loader takes no other
using Segment = ElfW(Phdr);

template <typename Record> bool readRecord(std::ifstream& stream, Record* record)
{
    return static_cast<bool>(stream.read(reinterpret_cast<char*>(record), sizeof *record));
}

bool isThere(const Segment& segment, std::uintmax_t fileSize)
{
    if (segment.p_type != PT_LOAD)
        return true;
    return segment.p_offset <= fileSize && segment.p_filesz <= fileSize - segment.p_offset;
}

}  // namespace

bool isWholeELFFile(const std::filesystem::path& file)
{
    std::error_code unreachable;
    const std::uintmax_t size = std::filesystem::file_size(file, unreachable);
    std::ifstream stream(file, std::ios::binary);
    FileHeader header;
    if (unreachable || !readRecord(stream, &header) || header.e_phentsize != sizeof(Segment))
        return false;

    stream.seekg(static_cast<std::streamoff>(header.e_phoff));
    for (unsigned index = 0; index < header.e_phnum; ++index) {
        Segment segment;
        if (!readRecord(stream, &segment) || !isThere(segment, size))
            return false;
    }
    return true;
}

}  // namespace Toolbox
