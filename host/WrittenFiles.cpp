#include "host/WrittenFiles.h"

#include "host/Messages.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <system_error>

namespace Host {

namespace {

namespace fs = std::filesystem;

// Behind its name stand a dot and some more, while it is being written beside what it replaces.
constexpr std::size_t LONGEST_NAME = NAME_MAX - sizeof ".1234567";

std::string lastError()
{
    return std::generic_category().message(errno);
}

Problem saveFailure(const std::string& name, const fs::path& file, const std::string& reason)
{
    return Problem(ExitStatus::NotDone, notWritten(name, file, reason));
}

// The file that `file` leads to, there or not. Throws Problem when it is something that a file must not replace.
fs::path targetOf(const std::string& name, const fs::path& file)
{
    std::error_code error;
    const fs::path target = fs::weakly_canonical(fs::absolute(file, error), error);
    if (error)
        throw saveFailure(name, file, error.message());
    if (fs::is_symlink(target, error))  // the others were followed
        throw saveFailure(name, file, "it is a link that leads nowhere");
    if (fs::exists(target, error) && !fs::is_regular_file(target, error))
        throw saveFailure(name, file, "it is not a regular file");
    if (target.filename().native().size() > LONGEST_NAME)
        throw saveFailure(name, file, "its name is longer than " + std::to_string(LONGEST_NAME) + " bytes");
    return target;
}

// Makes the new file `file` with these bytes. False, with the reason in errno and no new file, when it cannot be made.
bool makeFile(const fs::path& file, const std::vector<std::uint8_t>& bytes)
{
    std::FILE* const stream = std::fopen(file.c_str(), "wbx");  // x: only if there is none yet
    if (stream == nullptr)
        return false;
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() && std::fflush(stream) == 0
        && fsync(fileno(stream)) == 0;
    if (std::fclose(stream) == 0 && written)
        return true;
    const int reason = errno;
    std::remove(file.c_str());
    errno = reason;
    return false;
}

// Gives the file `temporary` the name `target`, and the permissions of the file that has it now.
std::error_code moveInto(const fs::path& target, const fs::path& temporary)
{
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    error.clear();  // there need not be one
    if (fs::exists(status))
        fs::permissions(temporary, status.permissions(), error);
    if (!error)
        fs::rename(temporary, target, error);
    return error;
}

std::string traceFailure(const fs::path& file, int error)
{
    return "cannot write the trace into '" + file.string() + "': " + std::generic_category().message(error);
}

// Null, with the reason in errno, also for a pipe that nobody reads: opening that would wait for a reader.
std::FILE* openForWriting(const fs::path& file)
{
    const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666);
    if (descriptor < 0)
        return nullptr;
    fcntl(descriptor, F_SETFL, 0);  // but a slow reader is waited for
    return fdopen(descriptor, "w");
}

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
    // What is written takes the place of what is there, so the folder has to take it.
    if (access(target.parent_path().c_str(), W_OK | X_OK) != 0)
        throw saveFailure(name, file, "its folder takes no new file: " + lastError());
}

void writeFile(const std::string& name, const fs::path& file, const std::vector<std::uint8_t>& bytes)
{
    const fs::path target = targetOf(name, file);
    fs::path temporary = target;
    temporary += "." + std::to_string(getpid());
    if (!makeFile(temporary, bytes))
        throw saveFailure(name, file, lastError());
    const std::error_code error = moveInto(target, temporary);
    if (error) {
        std::error_code ignored;  // what went wrong first is what counts
        fs::remove(temporary, ignored);
        throw saveFailure(name, file, error.message());
    }
}

TraceFile::TraceFile(const fs::path& file)
    : m_path(file)
    , m_stream(openForWriting(file))
{
    if (!m_stream)
        throw Problem(ExitStatus::NotDone, traceFailure(m_path, errno));
}

void TraceFile::write(const std::string& line)
{
    if (m_error != 0)
        return;
    if (std::fputs((oneLine(line) + '\n').c_str(), m_stream.get()) < 0 || std::fflush(m_stream.get()) != 0)
        m_error = errno;
}

bool TraceFile::finish(std::string* problem)
{
    if (std::fclose(m_stream.release()) != 0 && m_error == 0)
        m_error = errno;
    if (m_error != 0)
        *problem = traceFailure(m_path, m_error);
    return m_error == 0;
}

}  // namespace Host
