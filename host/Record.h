// The parameter record as the host keeps it: the 614 bytes that the external gets, and what a file had after them; and
// what a call has chosen in it.

#ifndef HOST_RECORD_H
#define HOST_RECORD_H

#include "VISEX_Plugins/LanguageSelector/ExternParmBlock.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace Host {

class Record {
public:
    /// A record of zeros, without a tail.
    Record();

    /// The record in `file`, read as it is. Throws Problem when the file cannot be read, is not a regular file, or has
    /// fewer than 614 bytes or more than 1 MiB.
    static Record load(const std::filesystem::path& file);

    /// Throws Problem when `file` is there and neither empty nor a record, as far as its size and its current
    /// language tell, or cannot be read.
    static void checkThatItReplaces(const std::filesystem::path& file);

    /// Saves the record and its tail in `file`, whole or not at all: what was there before stays until all is written.
    /// Throws Problem, as checkThatItReplaces() does too: much time may have passed since it was asked.
    void save(const std::filesystem::path& file) const;

    /// The record's fields. They are the record's own bytes.
    ExternParmBlock& block() { return *reinterpret_cast<ExternParmBlock*>(m_bytes.data()); }

private:
    explicit Record(std::vector<std::uint8_t> bytes);

    std::vector<std::uint8_t> m_bytes;  // never shorter than an ExternParmBlock, which may lie at any address
};

/// Lives as long as a call. Any language that the external writes may be the one that the field holds already, so the
/// field holds a value that is no language while the call runs.
class ChosenLanguage {
public:
    /// Puts that value into the field.
    explicit ChosenLanguage(ExternParmBlock& block);

    /// What was written since then, or nothing; the field then has its own value again. To be asked once.
    std::optional<UInt16> settle();

private:
    ExternParmBlock& m_block;
    const UInt16 m_own;
};

}  // namespace Host

#endif
