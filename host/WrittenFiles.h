// Files that the host writes whole or not at all.

#ifndef HOST_WRITTENFILES_H
#define HOST_WRITTENFILES_H

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace Host {

/// The line that says why the `name` was not saved in `file`.
std::string notWritten(const std::string& name, const std::filesystem::path& file, const std::string& reason);

/// Throws Problem when it can be told beforehand that the `name` cannot be saved in `file`: its folder does not take
/// it, what is there may not be written to or replaced, is no regular file or a link that leads nowhere, the file's own
/// name is too long to be written beside, or the disk is full, which is tried.
void checkWritable(const std::string& name, const std::filesystem::path& file);

/// Makes `bytes` the contents of `file`, whole or not at all: they are written beside it, under a name that nothing
/// has, and then take its place, with its owner, group and mode from the first byte on. For each of these
/// that cannot be kept, a line goes to standard error, and so for other names of the file, which keep what was there. A
/// link stays one, and the file that it leads to is written. Only a regular file is replaced. Throws Problem; what was
/// there before is then as it was. No signal but SIGKILL leaves anything behind.
void writeFile(const std::string& name, const std::filesystem::path& file, const std::vector<std::uint8_t>& bytes);

}  // namespace Host

#endif
