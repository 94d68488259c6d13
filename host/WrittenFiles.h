// Files that the host writes: whole or not at all, or, for the trace, line by line.

#ifndef HOST_WRITTENFILES_H
#define HOST_WRITTENFILES_H

#include <cstddef>
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
/// it, what is there may not be written to, is no regular file or a link that leads nowhere, or the file's own name is
/// too long to be written beside.
void checkWritable(const std::string& name, const std::filesystem::path& file);

/// Makes `bytes` the contents of `file`, whole or not at all: they are written beside it and then take its place, with
/// its permissions. A link stays one, and the file that it leads to is written. Throws Problem; what was there before
/// is then as it was. Only a regular file is replaced.
void writeFile(const std::string& name, const std::filesystem::path& file, const std::vector<std::uint8_t>& bytes);

/// A file of lines, each of which is in it at once: what led to a crash is there after it.
class TraceFile {
public:
    /// Makes the file empty, or makes it. Throws Problem when it cannot be written.
    explicit TraceFile(const std::filesystem::path& file);

    void write(const std::string& line);

    /// Whether everything was written; the reason in `*problem` when it was not.
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
