#include "Velbase/common/common_string.h"

#include <cstdio>

int main()
{
    std::vector<String> words;
    String("English,Français,日本語").Split(',', words);
    const String line =
        String("%1 languages: %2").Arg(static_cast<unsigned>(words.size())).Arg(String::Join(", ", words));
    std::puts(line.Latin1());
}
