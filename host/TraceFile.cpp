#include "host/TraceFile.h"

#include "host/OneLine.h"
#include "host/Problem.h"

#include <cerrno>
#include <system_error>

namespace Host {

namespace {

std::string notWritten(const std::filesystem::path& file, int error)
{
    return "cannot write the trace into '" + file.string() + "': " + std::generic_category().message(error);
}

}  // namespace

TraceFile::TraceFile(const std::filesystem::path& file)
    : m_path(file)
    , m_stream(std::fopen(file.c_str(), "w"))
{
    if (!m_stream)
        throw Problem(ExitStatus::NotDone, notWritten(m_path, errno));
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
        *problem = notWritten(m_path, m_error);
    return m_error == 0;
}

}  // namespace Host
