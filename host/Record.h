// The parameter record as the host keeps it: the 614 bytes that the external gets, and what a file had after them.

#ifndef HOST_RECORD_H
#define HOST_RECORD_H

#include "VISEX_Plugins/LanguageSelector/ExternParmBlock.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace Host {

class Record {
public:
    /// A record of zeros, without a tail.
    Record();

    /// The record in `file`, read as it is. Throws Problem when the file cannot be read, is not a regular file, or has
    /// fewer than 614 bytes or more than 1 MiB.
    static Record load(const std::filesystem::path& file);

    /// Saves the record and its tail in `file`, whole or not at all: what was there before stays until all is written.
    /// Throws Problem.
    void save(const std::filesystem::path& file) const;

    /// The record's fields. They are the record's own bytes.
    ExternParmBlock& block() { return *reinterpret_cast<ExternParmBlock*>(m_bytes.data()); }

private:
    explicit Record(std::vector<std::uint8_t> bytes);

    std::vector<std::uint8_t> m_bytes;  // never shorter than an ExternParmBlock, which may lie at any address
};

}  // namespace Host

#endif
