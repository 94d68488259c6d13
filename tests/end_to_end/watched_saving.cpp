// Sends the host, both of its processes, a signal when it has written a file beside another that it is to replace: the
// signal SIGNAL_IN_RENAME at the last moment at which anything of the new one could be where the old one is, and
// SIGNAL_IN_SYNC as soon as the file is there, which it also is when it is only tried. What is not on the disk by then
// is not moved, nor what has another mode than the old one, nor what a program that is started meanwhile would have
// open. And says of every pipe that it is a regular file, to whoever asks for it by name: another may stand there by
// the time that it is opened. Loaded before the host's libraries.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace {

bool synchronized = false;

// Whether a program that is started now has the file open.
bool isHandedOn(const char* path)
{
    struct stat sought;
    struct stat found;
    if (fstatat(AT_FDCWD, path, &sought, 0) != 0)
        return false;
    for (int file = 0; file < 64; ++file) {
        const int flags = fcntl(file, F_GETFD);
        if (flags != -1 && (flags & FD_CLOEXEC) == 0 && fstat(file, &found) == 0 && found.st_dev == sought.st_dev
            && found.st_ino == sought.st_ino)
            return true;
    }
    return false;
}

bool hasModeOf(const char* other, const char* path)
{
    struct stat facts;
    struct stat others;
    return fstatat(AT_FDCWD, other, &others, 0) != 0
        || (fstatat(AT_FDCWD, path, &facts, 0) == 0 && facts.st_mode == others.st_mode);
}

void sendSignalOf(const char* moment)
{
    if (const char* const signal = std::getenv(moment)) {
        kill(getppid(), std::atoi(signal));
        usleep(10000);  // time for it to end of that, and for what the kernel then does with this process
        raise(std::atoi(signal));
    }
}

}  // namespace

extern "C" int fsync(int file)
{
    sendSignalOf("SIGNAL_IN_SYNC");
    synchronized = true;
    return static_cast<int>(syscall(SYS_fsync, file));
}

extern "C" int fdatasync(int file)
{
    return fsync(file);
}

extern "C" int rename(const char* from, const char* to) noexcept
{
    if (!synchronized || !hasModeOf(to, from) || isHandedOn(from)) {
        errno = EIO;
        return -1;
    }
    sendSignalOf("SIGNAL_IN_RENAME");
    return static_cast<int>(syscall(SYS_rename, from, to));
}

extern "C" int stat(const char* path, struct stat* facts) noexcept
{
    const int result = fstatat(AT_FDCWD, path, facts, 0);
    if (result == 0 && S_ISFIFO(facts->st_mode))
        facts->st_mode = (facts->st_mode & ~static_cast<mode_t>(S_IFMT)) | S_IFREG;
    return result;
}
