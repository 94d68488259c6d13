// A file for readers that take a path: the same one for every input, with other bytes in it. fuzz/run has temporary
// folders made in memory, so that no disk is touched.

#ifndef FUZZ_SCRATCH_FILE_H
#define FUZZ_SCRATCH_FILE_H

#include "fuzz/must_hold.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>

class ScratchFile {
public:
    /// Makes the file `path`.
    explicit ScratchFile(const std::string& path)
        : m_descriptor(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600))
    {
        mustHold(m_descriptor >= 0, "a scratch file can be made");
    }

    ~ScratchFile() { close(m_descriptor); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    /// Has the file hold these bytes and no others.
    void hold(const std::uint8_t* data, std::size_t size)
    {
        const bool written = pwrite(m_descriptor, data, size, 0) == static_cast<ssize_t>(size)
            && ftruncate(m_descriptor, static_cast<off_t>(size)) == 0;
        mustHold(written, "a scratch file can be written");
    }

private:
    const int m_descriptor;
};

#endif
