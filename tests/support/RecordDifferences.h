// Where two of the installer's records differ, so that a test that fails names the bytes rather than showing all.

#ifndef TESTS_SUPPORT_RECORDDIFFERENCES_H
#define TESTS_SUPPORT_RECORDDIFFERENCES_H

#include "VISEX_Plugins/LanguageSelector/ExternParmBlock.h"

#include <algorithm>
#include <string>
#include <string_view>

/// A line for each byte that is not as expected, up to 16 of them, and for another size. Empty if there is no
/// difference.
inline std::string recordDifferences(std::string_view actual, std::string_view expected)
{
    if (actual == expected)
        return {};  // at once: this is asked for every message there can be
    std::string text;
    if (actual.size() != expected.size())
        text = std::to_string(actual.size()) + " bytes, not " + std::to_string(expected.size()) + "\n";
    int left = 16;
    for (std::size_t i = 0; i < std::min(actual.size(), expected.size()) && left > 0; ++i) {
        if (actual[i] == expected[i])
            continue;
        const auto number = [i](std::string_view bytes) {
            return std::to_string(static_cast<unsigned char>(bytes[i]));
        };
        text += "byte " + std::to_string(i) + " is " + number(actual) + ", not " + number(expected) + "\n";
        --left;
    }
    return text;
}

/// The same for records.
inline std::string recordDifferences(const ExternParmBlock& actual, const ExternParmBlock& expected)
{
    const auto bytesOf = [](const ExternParmBlock& record) {
        return std::string_view(reinterpret_cast<const char*>(&record), sizeof record);
    };
    return recordDifferences(bytesOf(actual), bytesOf(expected));
}

#endif
