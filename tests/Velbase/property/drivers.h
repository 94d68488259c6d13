// What the operations are tried on: every short text over three letters, and many random texts. A check of one
// operation is a row of a table; the drivers run it and stop at the first mismatch, the shortest there is.

#ifndef TESTS_VELBASE_PROPERTY_DRIVERS_H
#define TESTS_VELBASE_PROPERTY_DRIVERS_H

#include "tests/support/RowName.h"
#include "twin.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

/// Random choices, the same ones in every run of a build.
class Random {
public:
    explicit Random(std::uint32_t seed)
        : m_engine(seed)
    {
    }

    /// A number below `limit`, which is not 0.
    std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(m_engine() % limit); }

    /// One time out of `times`.
    bool once(std::uint32_t times) { return below(times) == 0; }

    /// A number of 64 bits, as often a short one as a long one.
    std::uint64_t number();

    template <typename Choices> auto oneOf(const Choices& choices)
    {
        return choices[below(static_cast<std::uint32_t>(std::size(choices)))];
    }

    char of(std::string_view letters) { return oneOf(letters); }

    /// At most `maxLength` of `letters`.
    std::string bytes(std::string_view letters, std::uint32_t maxLength);

    /// A text of at most `maxLength` bytes from an alphabet small enough for matches, zero bytes included. Sometimes
    /// null, and sometimes up to four times as long, so that its bytes are not inside the std::string itself.
    Twin text(std::uint32_t maxLength = 9);

private:
    std::mt19937 m_engine;
};

/// A null string and every text of at most `maxLength` of `letters`, the shortest first.
std::vector<Twin> shortTexts(std::string_view letters, unsigned maxLength);

/// Every position in `text`, or those at both ends of a long one; both that follow; the extremes.
std::vector<unsigned> positions(const Twin& text);

/// The same after none.
std::vector<checked_uint> optionalPositions(const Twin& text);

/// An operation on a text alone.
struct TextOperation {
    const char* name;
    std::string_view letters;  // of the short texts
    void (*check)(const Twin& text);
};

/// An operation on a text with another text as argument.
struct PairOperation {
    const char* name;
    std::string_view letters;
    void (*check)(const Twin& text, const Twin& argument);
};

class TextProperty : public testing::TestWithParam<TextOperation> { };
class PairProperty : public testing::TestWithParam<PairOperation> { };

#endif
