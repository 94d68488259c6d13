#include "host/WrittenFiles.h"

#include "host/Messages.h"
#include "host/Paths.h"
#include "host/Process.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <optional>
#include <system_error>

namespace Host {

namespace {

namespace fs = std::filesystem;

// What follows the name of a file while it is written beside the one that it replaces.
constexpr char SUFFIX[] = ".XXXXXX";
constexpr std::size_t LONGEST_NAME = NAME_MAX - (sizeof SUFFIX - 1);

// How much is written to see whether the disk takes it: no file takes less of it than a block.
constexpr std::size_t BLOCK = 4096;

Problem saveFailure(const std::string& name, const fs::path& file, const std::string& reason)
{
    return Problem(ExitStatus::NotDone, notWritten(name, file, reason));
}

// The file that `file` leads to, there or not. Throws Problem when it is something that a file must not replace.
fs::path targetOf(const std::string& name, const fs::path& file)
{
    std::error_code error;
    const fs::path target = placeOf(file, error);
    if (error)
        throw saveFailure(name, file, error.message());
    if (fs::is_symlink(target, error))  // the others were followed
        throw saveFailure(name, file, "it is a link that leads nowhere");
    if (fs::is_directory(target, error))
        throw saveFailure(name, file, "it is a folder");
    if (fs::exists(target, error) && !fs::is_regular_file(target, error))
        throw saveFailure(name, file, "it is not a regular file");
    if (target.filename().native().size() > LONGEST_NAME)
        throw saveFailure(name, file, "its name is longer than " + std::to_string(LONGEST_NAME) + " bytes");
    return target;
}

// What is known of `path`; nothing if it is not there.
std::optional<struct statx> factsOf(const fs::path& path)
{
    struct statx facts;
    if (statx(AT_FDCWD, path.c_str(), 0, STATX_BASIC_STATS, &facts) != 0)
        return std::nullopt;
    return facts;
}

// Why the file `target`, which may be written to, cannot be replaced by another all the same; empty if it can.
std::string whatKeeps(const fs::path& target)
{
    const std::optional<struct statx> file = factsOf(target);
    const std::optional<struct statx> folder = factsOf(target.parent_path());
    if (!file || !folder)
        return std::string();
    if ((file->stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0)  // as containers are lent single files
        return "it is a mount point, which cannot be replaced";
    const uid_t user = geteuid();
    if ((folder->stx_mode & S_ISVTX) != 0 && user != 0 && user != file->stx_uid && user != folder->stx_uid)
        return "its folder lets only the file's owner replace it";
    return std::string();
}

// A new file beside `target`, empty and for nobody else to read. It goes with this, unless it has taken the target's
// place.
class FileBeside {
public:
    explicit FileBeside(const fs::path& target)
        : m_target(target)
        , m_path(target.native() + SUFFIX)
        , m_descriptor(mkostemp(m_path.data(), O_CLOEXEC))
    {
    }

    ~FileBeside()
    {
        if (m_descriptor < 0)
            return;
        close(m_descriptor);
        unlink(m_path.c_str());
    }

    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;

    // Gives it the target's owner, group and mode, or a new file's mode if there is no target. What it cannot be given
    // is added to `*lost`.
    void resembleTarget(std::vector<std::string>* lost) const
    {
        struct stat old;
        if (stat(m_target.c_str(), &old) != 0) {
            const mode_t mask = umask(0);
            umask(mask);
            fchmod(m_descriptor, 0666 & ~mask);
            return;
        }
        if (fchown(m_descriptor, static_cast<uid_t>(-1), old.st_gid) != 0)
            lost->push_back("its group");
        if (fchown(m_descriptor, old.st_uid, static_cast<gid_t>(-1)) != 0)
            lost->push_back("its owner");
        if (fchmod(m_descriptor, old.st_mode & 07777) != 0)
            lost->push_back("its permissions");
        if (old.st_nlink > 1)
            lost->push_back("its other names, which keep the old contents");
    }

    // Makes these the contents of the file, on the disk. False, with the reason in errno, if it does not take them.
    bool write(const std::vector<std::uint8_t>& bytes) const
    {
        for (std::size_t done = 0; done < bytes.size();) {
            const ssize_t count = ::write(m_descriptor, bytes.data() + done, bytes.size() - done);
            if (count < 0)
                return false;
            done += static_cast<std::size_t>(count);
        }
        return fsync(m_descriptor) == 0;
    }

    // Gives it the target's name. False, with the reason in errno, if that cannot be.
    bool takePlace()
    {
        if (rename(m_path.c_str(), m_target.c_str()) != 0)
            return false;
        close(m_descriptor);
        m_descriptor = -1;
        return true;
    }

    bool isMade() const { return m_descriptor >= 0; }

private:
    const fs::path m_target;
    std::string m_path;
    int m_descriptor;
};

}  // namespace

std::string notWritten(const std::string& name, const fs::path& file, const std::string& reason)
{
    return "cannot save the " + name + " in '" + file.string() + "': " + reason;
}

void checkWritable(const std::string& name, const fs::path& file)
{
    const fs::path target = targetOf(name, file);
    if (access(target.c_str(), F_OK) == 0 && access(target.c_str(), W_OK) != 0)
        throw saveFailure(name, file, lastError());
    // What is written takes the place of what is there, so the folder has to take it, and be one.
    if (access((target.parent_path() / "").c_str(), W_OK | X_OK) != 0)
        throw saveFailure(name, file,
            errno == ENOENT || errno == ENOTDIR ? "there is no such folder"
                                                : "its folder takes no new file: " + lastError());
    if (const std::string reason = whatKeeps(target); !reason.empty())
        throw saveFailure(name, file, reason);

    const HeldSignals held;  // none ends the process between the making of the file and its end
    const FileBeside trial(target);
    if (!trial.isMade() || !trial.write(std::vector<std::uint8_t>(BLOCK)))
        throw saveFailure(name, file, lastError());
}

void writeFile(const std::string& name, const fs::path& file, const std::vector<std::uint8_t>& bytes)
{
    const fs::path target = targetOf(name, file);
    std::vector<std::string> lost;
    {
        const HeldSignals held;
        FileBeside made(target);
        if (!made.isMade())
            throw saveFailure(name, file, lastError());
        made.resembleTarget(&lost);
        if (!made.write(bytes) || !made.takePlace())
            throw saveFailure(name, file, lastError());
    }
    for (const std::string& each : lost)
        complain("the " + name + " in '" + file.string() + "' has lost " + each);
}

}  // namespace Host
