// Files that the host writes: whole or not at all, or, for the trace, line by line.

#ifndef HOST_WRITTENFILES_H
#define HOST_WRITTENFILES_H

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
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
/// has, and then take its place, with its owner, group and mode from the first byte on. What of these the process may
/// not give is a line, and so is that the file has other names, which keep what was there. A link stays one, and the
/// file that it leads to is written. Only a regular file is replaced. Throws Problem; what was there before is then as
/// it was. No signal but SIGKILL leaves anything behind.
void writeFile(const std::string& name, const std::filesystem::path& file, const std::vector<std::uint8_t>& bytes);

/// A file of lines, each of which is in it at once: what led to a crash is there after it.
class TraceFile {
public:
    /// Makes the file empty, or makes it. Throws Problem when it cannot be written.
    explicit TraceFile(const std::filesystem::path& file);

    /// Adds `line`, made one if it is more.
    void write(const std::string& line);

    /// Whether everything was written; the reason in `*problem` when it was not. Nothing can be written any more.
    bool finish(std::string* problem);

private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    const std::filesystem::path m_path;
    std::unique_ptr<std::FILE, Closer> m_stream;
    int m_error = 0;  // of the first line that could not be written; 0 if there is none
};

}  // namespace Host

#endif
