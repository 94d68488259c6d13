#include "host/OneLine.h"

#include <algorithm>

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

}  // namespace Host
