// Optional numbers: what a search that may find nothing returns, and how a count that may be left out is passed.
// No position has to double as "not found".

#ifndef VELBASE_COMMON_CHECKED_TYPES_H
#define VELBASE_COMMON_CHECKED_TYPES_H

#include <cstdint>
#include <type_traits>

/// A value that may be absent. Owns nothing, allocates nothing, copies freely.
template <typename T> class checked_value {
public:
    /// No value.
    checked_value()
        : m_value()
        , m_given(0)
    {
    }

    /// The value `given`. Implicit, so that callers pass a count as a plain number.
    checked_value(T given)
        : m_value(given)
        , m_given(1)
    {
    }

    /// A truth is no number: `FindRev('x', false)` would take the false for a position.
    template <typename Bool, std::enable_if_t<std::is_same_v<Bool, bool> && !std::is_same_v<T, bool>, int> = 0>
    checked_value(Bool given) = delete;

    /// Whether there is a value.
    bool valid() const { return m_given != 0; }

    /// The value, or T() when there is none: ask valid() first.
    T value() const { return m_value; }

private:
    T m_value;
    std::uint32_t m_given;  // a word, not a bool: a bool is 4 bytes on the target and 1 elsewhere
};

/// An optional position, count or precision.
typedef checked_value<unsigned> checked_uint;

static_assert(sizeof(checked_uint) == 8, "an optional number is two 32-bit words, the value and the flag");

#endif
