#include "host/Messages.h"

#include "host/OneLine.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <initializer_list>
#include <system_error>

namespace Host {

void holdStandardStreams()
{
    // Opened the wrong way round, so that reading and writing fail. A new file gets the lowest free number, which is
    // the one that was found missing.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) == -1 && errno == EBADF)
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

bool printAnswer(const std::string& answer, std::string* problem)
{
    if (std::fputs(answer.c_str(), stdout) >= 0 && std::fflush(stdout) == 0)
        return true;
    *problem = "standard output takes nothing: " + std::generic_category().message(errno);
    return false;
}

void complain(const std::string& line)
{
    std::fprintf(stderr, "visex-host: %s\n", oneLine(line).c_str());
}

}  // namespace Host
