// The trace in a file: each of its lines is there at once, so that after a crash it tells what led to it.

#ifndef HOST_TRACEFILE_H
#define HOST_TRACEFILE_H

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace Host {

class TraceFile {
public:
    /// Makes the file empty, or makes it. Throws Problem when it cannot be written.
    explicit TraceFile(const std::filesystem::path& file);

    /// Adds `line`; line breaks in it are escaped.
    void write(const std::string& line);

    /// Nothing can be written any more. Throws Problem when not everything was.
    void finish();

private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    const std::filesystem::path m_path;
    std::unique_ptr<std::FILE, Closer> m_stream;
    int m_error = 0;  // of the last line that could not be written; 0 if there is none
};

}  // namespace Host

#endif
