// A program that converts a text to UTF-16, for which the library alone is not enough.

#include <Velbase/common/common_string.h>

#include <cstdio>

int main()
{
    const String text("caf\x8E");  // in Mac OS Roman
    std::printf("U+%04X\n", static_cast<unsigned>(text.Unicode()[3]));
}
