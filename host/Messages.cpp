#include "host/Messages.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>

namespace Host {

namespace {

// Bytes of 0x80 and above are parts of UTF-8 characters.
bool isControl(unsigned char byte)
{
    return byte < 0x20 || byte == 0x7F;
}

}  // namespace

std::string oneLine(std::string text)
{
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

void complain(const std::string& line)
{
    std::fprintf(stderr, "visex-host: %s\n", oneLine(line).c_str());
}

bool printAnswer(const std::string& answer, std::string* problem)
{
    if (std::fputs(answer.c_str(), stdout) >= 0 && std::fflush(stdout) == 0)
        return true;
    *problem = "standard output takes nothing: " + std::generic_category().message(errno);
    return false;
}

}  // namespace Host
