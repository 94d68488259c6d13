// Reads and writes whole files.

#ifndef HOST_WRITTENFILES_H
#define HOST_WRITTENFILES_H

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace Host {

/// The bytes of `file`, which messages call the `name`. Throws Problem when it cannot be read, is not a regular file,
/// or has more than `largest` bytes.
std::vector<std::uint8_t> readFile(const std::string& name, const std::filesystem::path& file, std::size_t largest);

/// The line that says why the `name` was not saved in `file`.
std::string notWritten(const std::string& name, const std::filesystem::path& file, const std::string& reason);

/// Throws Problem when it can be told beforehand that the `name` cannot be saved in `file`: its folder does not take
/// it, what is there may not be written to, is no regular file or a link that leads nowhere, or the file's own name is
/// too long to be written beside.
void checkWritable(const std::string& name, const std::filesystem::path& file);

/// Makes `bytes` the contents of `file`, whole or not at all: they are written beside it and then take its place, with
/// its permissions. A link stays one, and the file that it leads to is written. Throws Problem; what was there before
/// is then as it was. Only a regular file is replaced.
void writeFile(const std::string& name, const std::filesystem::path& file, const std::vector<std::uint8_t>& bytes);

}  // namespace Host

#endif
