// The file that the external's calls of the toolbox are told in.

#ifndef HOST_TRACEFILE_H
#define HOST_TRACEFILE_H

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace Host {

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
