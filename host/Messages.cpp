#include "host/Messages.h"

#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <system_error>

namespace Host {

char* unsaid = nullptr;

void complain(const std::string& line)
{
    writeToStandardError({"visex-host: ", oneLine(line).c_str(), "\n"});
}

void writeToStandardError(std::initializer_list<const char*> texts)
{
    iovec pieces[8];
    int count = 0;
    for (const char* const text : texts)
        pieces[count++] = {const_cast<char*>(text), std::strlen(text)};
    if (writev(STDERR_FILENO, pieces, count) >= 0 || unsaid == nullptr)
        return;
    for (const char* const text : texts)
        std::strncat(unsaid, text, UNSAID_SIZE - 1 - std::strlen(unsaid));
}

std::string lastError()
{
    return std::generic_category().message(errno);
}

void print(const std::string& answer)
{
    if (std::fputs(answer.c_str(), stdout) < 0 || std::fflush(stdout) != 0)
        throw Problem(ExitStatus::NotDone, "cannot write to standard output: " + lastError());
}

}  // namespace Host
