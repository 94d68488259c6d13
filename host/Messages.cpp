#include "host/Messages.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace Host {

void complain(const std::string& line)
{
    std::fprintf(stderr, "visex-host: %s\n", oneLine(line).c_str());
}

std::string lastError()
{
    return std::generic_category().message(errno);
}

bool printAnswer(const std::string& answer, std::string* problem)
{
    if (std::fputs(answer.c_str(), stdout) >= 0 && std::fflush(stdout) == 0)
        return true;
    *problem = "standard output takes nothing: " + lastError();
    return false;
}

}  // namespace Host
