#include "host/TraceFile.h"

#include "host/Messages.h"
#include "host/WrittenFiles.h"

#include <fcntl.h>

#include <cerrno>
#include <system_error>

namespace Host {

namespace {

namespace fs = std::filesystem;

Problem traceFailure(const fs::path& file, int error)
{
    return Problem(ExitStatus::NotDone, notWritten("trace", file, std::generic_category().message(error)));
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

TraceFile::TraceFile(const fs::path& file)
    : m_path(file)
    , m_stream(openForWriting(file))
{
    if (!m_stream)
        throw traceFailure(m_path, errno);
}

void TraceFile::write(const std::string& line)
{
    if (std::fputs((oneLine(line) + '\n').c_str(), m_stream.get()) < 0 || std::fflush(m_stream.get()) != 0)
        m_error = errno;
}

void TraceFile::finish()
{
    if (std::fclose(m_stream.release()) != 0)
        m_error = errno;
    if (m_error != 0)
        throw traceFailure(m_path, m_error);
}

}  // namespace Host
