// Where two of the installer's records differ, so that a test that fails names the fields rather than showing all
// bytes.

#ifndef TESTS_SUPPORT_RECORDDIFFERENCES_H
#define TESTS_SUPPORT_RECORDDIFFERENCES_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// A line for each field, and for each run of other bytes, that is not as expected: its position and both values in
/// hexadecimal. Empty if there is no difference. What follows a record is compared too. After 16 lines it only says
/// that there is more.
std::string recordDifferences(std::string_view actual, std::string_view expected);

/// The same for bytes in arrays.
template <std::size_t SIZE>
std::string recordDifferences(
    const std::array<unsigned char, SIZE>& actual, const std::array<unsigned char, SIZE>& expected)
{
    return recordDifferences(std::string_view(reinterpret_cast<const char*>(actual.data()), SIZE),
        std::string_view(reinterpret_cast<const char*>(expected.data()), SIZE));
}

#endif
