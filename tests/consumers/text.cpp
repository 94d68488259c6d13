// A program that uses the installed text library, and nothing of what its UTF-16 members need.

#include <Velbase/common/common_string.h>

#include <cstdio>

int main()
{
    const String line = String("%1 is %2").Arg("twice 21").Arg(42);
    std::puts(line.Latin1());
}
