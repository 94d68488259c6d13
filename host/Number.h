// Reads whole numbers as people type them.

#ifndef HOST_NUMBER_H
#define HOST_NUMBER_H

#include <charconv>
#include <optional>
#include <string_view>

namespace Host {

/// The decimal number that is all of `text`, or nothing when there is anything else in it or when it does not fit: it
/// is never cut to fit. No blanks, no plus sign.
template <typename Integer> std::optional<Integer> parseNumber(std::string_view text)
{
    Integer number{};
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end)
        return std::nullopt;
    return number;
}

}  // namespace Host

#endif
