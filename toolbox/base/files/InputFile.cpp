#include "toolbox/base/files/InputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace Toolbox {

OSErr fileError(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return fnfErr;
    case EACCES:
    case EPERM:
        return permErr;
    case EMFILE:
    case ENFILE:
        return tmfoErr;
    default:
        return ioErr;
    }
}

InputFile::~InputFile()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

OSErr InputFile::open(const std::string& path)
{
    // Opened first, and then looked at: what lies there may change between. O_NONBLOCK, since opening a pipe would wait
    // for its other end.
    m_descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (m_descriptor < 0)
        return fileError(errno);
    struct stat facts;
    if (fstat(m_descriptor, &facts) != 0)
        return fileError(errno);
    if (!S_ISREG(facts.st_mode))
        return ioErr;
    m_length = static_cast<std::uint64_t>(facts.st_size);
    return noErr;
}

OSErr InputFile::read(std::uint64_t offset, std::size_t count, std::vector<UInt8>* bytes) const
{
    bytes->resize(count);
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got = pread(m_descriptor, bytes->data() + done, count - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return ioErr;
        if (got == 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    bytes->resize(done);
    return noErr;
}

}  // namespace Toolbox
