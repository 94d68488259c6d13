#include "tests/toolbox/core/terminal/PseudoTerminal.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace {

constexpr int LONGEST_WAIT_FOR_A_BYTE = 120'000;  // milliseconds; a test that needs them has failed
constexpr rlim_t LONGEST_WORK = 20;               // seconds of the processor, which a busy machine does not make more

// The next bytes of `file`; nothing at its end, or when none come.
std::string readSome(int file)
{
    pollfd waiting{file, POLLIN, 0};
    char bytes[4096];
    const ssize_t count = poll(&waiting, 1, LONGEST_WAIT_FOR_A_BYTE) == 1 ? read(file, bytes, sizeof bytes) : -1;
    return count > 0 ? std::string(bytes, static_cast<std::size_t>(count)) : std::string();
}

std::optional<std::string> readReport(int file)
{
    std::string report;
    for (std::string some = readSome(file); !some.empty(); some = readSome(file))
        report += some;
    if (report.empty() || report.back() != '\n')
        return std::nullopt;
    report.pop_back();
    return report;
}

[[noreturn]] void workAndReport(const std::function<std::string()>& work, int file)
{
    const std::string line = work() + "\n";
    const bool written = write(file, line.data(), line.size()) == static_cast<ssize_t>(line.size());
    _exit(written && !testing::Test::HasFailure() ? 0 : 1);
}

bool endsIn(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

PseudoTerminal::PseudoTerminal(const char* locale, const std::function<std::string()>& work, unsigned short columns)
{
    int report[2];
    EXPECT_EQ(pipe2(report, O_CLOEXEC), 0);
    const winsize size{0, columns, 0, 0};
    m_process = forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_process == 0) {
        const rlimit most{LONGEST_WORK, LONGEST_WORK};
        setrlimit(RLIMIT_CPU, &most);
        setenv("LC_ALL", locale, 1);
        close(report[0]);
        // The terminal is reached as such, and not through the standard streams.
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO})
            close(stream);
        workAndReport(work, report[1]);
    }
    close(report[1]);
    m_report = report[0];
}

PseudoTerminal::~PseudoTerminal()
{
    hangUp();
    close(m_report);
    waitpid(m_process, nullptr, 0);
}

std::string PseudoTerminal::readUntil(const std::string& end)
{
    std::string text;
    while (!endsIn(text, end)) {
        const std::string some = readSome(m_terminal);
        if (some.empty()) {
            ADD_FAILURE() << "waiting for \"" << end << "\" there came only:\n" << text;
            return text;
        }
        for (const char each : some)
            if (each != '\r')
                text += each;
    }
    return text;
}

void PseudoTerminal::type(const std::string& keys)
{
    EXPECT_EQ(write(m_terminal, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
}

void PseudoTerminal::resume()
{
    kill(m_process, SIGCONT);
}

void PseudoTerminal::hangUp()
{
    if (m_terminal >= 0)
        close(m_terminal);
    m_terminal = -1;
}

std::optional<std::string> PseudoTerminal::report(const std::string& keys)
{
    if (!keys.empty())
        type(keys);
    return readReport(m_report);
}

std::optional<std::string> reportWithoutTerminal(const std::function<std::string()>& work)
{
    int report[2];
    EXPECT_EQ(pipe2(report, O_CLOEXEC), 0);
    const pid_t process = fork();
    if (process == 0) {
        setsid();  // a session of its own has no terminal
        workAndReport(work, report[1]);
    }
    close(report[1]);
    const std::optional<std::string> line = readReport(report[0]);
    close(report[0]);
    waitpid(process, nullptr, 0);
    return line;
}
