// Regular files, open for reading, which is how everything is opened that comes from elsewhere; and the File Manager's
// codes for the system's error numbers.

#ifndef TOOLBOX_BASE_FILES_INPUTFILE_H
#define TOOLBOX_BASE_FILES_INPUTFILE_H

#include <Carbon/Files.h>

#include <cstdint>
#include <string>
#include <vector>

namespace Toolbox {

/// The code for `error`, a value of errno: fnfErr when the path leads to nothing, permErr, tmfoErr, else ioErr.
OSErr fileError(int error);

/// Closed when this goes.
class InputFile {
public:
    InputFile() = default;
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Opens the file at `path`; to be called once. Never waits: anything but a regular file is refused.
    /// Returns noErr; fnfErr; permErr; ioErr, also for a folder, a pipe or a device; tmfoErr.
    OSErr open(const std::string& path);

    /// Its length when it was opened, in bytes.
    std::uint64_t length() const { return m_length; }

    /// Puts the `count` bytes from `offset` on into `*bytes`, which is then that long; fewer where the file ends.
    /// Returns noErr or ioErr.
    OSErr read(std::uint64_t offset, std::size_t count, std::vector<UInt8>* bytes) const;

private:
    int m_descriptor = -1;
    std::uint64_t m_length = 0;
};

}  // namespace Toolbox

#endif
