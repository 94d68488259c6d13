// A string of the library beside the model's text that it must equal, and the comparison of the two.

#ifndef TESTS_VELBASE_PROPERTY_TWIN_H
#define TESTS_VELBASE_PROPERTY_TWIN_H

#include "reference.h"
#include "tests/Velbase/common/string_contents.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

/// A string and its model. Copies share, on both sides.
struct Twin {
    String string;
    reference::Text text;
};

/// Both sides of a null string.
inline Twin nullTwin()
{
    return {String(), nullptr};
}

/// Both sides of `bytes`, zero bytes included, in a new buffer.
inline Twin twinOf(const std::string& bytes)
{
    return {stringOf(bytes), reference::newText(bytes)};
}

typedef std::vector<std::reference_wrapper<const Twin>> Twins;

/// The model's form of an optional number.
inline reference::Position modelOf(const checked_uint& number)
{
    return number.valid() ? reference::Position(number.value()) : reference::Position();
}

// ---- How texts and calls are printed

/// Readable forms: "a\0b", null, 4294967295, none; of all else what GoogleTest has.
template <typename T> std::string shown(const T& value)
{
    if constexpr (std::is_same_v<T, reference::Text>)
        return value == nullptr ? "null" : testing::PrintToString(*value);
    else if constexpr (std::is_same_v<T, String>)
        return value.IsNull() ? "null" : testing::PrintToString(*contents(value));
    else if constexpr (std::is_same_v<T, Twin>)
        return shown(value.text);
    else if constexpr (std::is_same_v<T, reference::Position>)
        return value ? std::to_string(*value) : "none";
    else if constexpr (std::is_same_v<T, checked_uint>)
        return shown(modelOf(value));
    else
        return testing::PrintToString(value);
}
inline std::string shown(const std::vector<Twin>& twins)
{
    std::string list;
    for (const Twin& twin : twins)
        list += (list.empty() ? "" : ", ") + shown(twin);
    return "{" + list + "}";
}

/// The call under test, as it would be written: "abc".Mid(1, 2).
template <typename Subject, typename... Arguments>
std::string call(const Subject& subject, const std::string& operation, const Arguments&... arguments)
{
    std::string list;
    ((list += (list.empty() ? "" : ", ") + shown(arguments)), ...);
    return shown(subject) + "." + operation + "(" + list + ")";
}

// ---- Comparison

/// Whether `string` is what the model says: null or not, the length, every byte, the zero byte behind them. And whether
/// it shares its buffer with exactly those of `others` with which the model says, each of which must still be what its
/// own model says.
inline testing::AssertionResult agrees(const String& string, const reference::Text& text, const Twins& others = {})
{
    const bool same = string.IsNull() == (text == nullptr) && string.IsEmpty() == reference::bytes(text).empty()
        && string.Length() == reference::length(text)
        && std::memcmp(string.Latin1(), reference::bytes(text).c_str(), string.Length() + std::size_t(1)) == 0;
    if (!same)
        return testing::AssertionFailure() << "  expected " << shown(text) << "\n  came     " << shown(string) << "\n";
    for (const Twin& other : others) {
        const testing::AssertionResult result = agrees(other.string, other.text);
        if (!result)
            return testing::AssertionFailure() << result.message() << "  in another string\n";
        const bool shareExpected = text != nullptr && text == other.text;
        if (shareBuffer(string, other.string) != shareExpected)
            return testing::AssertionFailure()
                << "  the text " << shown(string) << " is right, but " << (shareExpected ? "does not share" : "shares")
                << " the buffer of " << shown(other) << "\n";
    }
    return testing::AssertionSuccess();
}

/// Whether a position is what the model says; one that was not found must hold 0.
inline testing::AssertionResult agrees(const checked_uint& position, const reference::Position& expected)
{
    if (position.valid() == expected.has_value() && position.value() == expected.value_or(0))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "  expected " << shown(expected) << "\n  came     " << shown(position)
                                       << ", holding " << position.value() << "\n";
}

inline testing::AssertionResult agrees(bool answer, bool expected)
{
    return answer == expected ? testing::AssertionSuccess()
                              : testing::AssertionFailure() << "  came " << answer << "\n";
}

// ---- The same call on both sides

/// What the library and what the model is given for an argument.
inline const String& given(const Twin& twin)
{
    return twin.string;
}
template <typename T> const T& given(const T& other)
{
    return other;
}
inline const reference::Text& modelled(const Twin& twin)
{
    return twin.text;
}
inline reference::Position modelled(const checked_uint& number)
{
    return modelOf(number);
}
template <typename T> const T& modelled(const T& other)
{
    return other;
}

/// Those of the arguments that are twins.
template <typename... Arguments> Twins twinsAmong(const Arguments&... arguments)
{
    Twins twins;
    const auto add = [&twins](const auto& argument) {
        if constexpr (std::is_same_v<std::decay_t<decltype(argument)>, Twin>)
            twins.push_back(argument);
    };
    (add(arguments), ...);
    return twins;
}

/// Expects the same result of `operation` on a string as of `model` on its text, and the operands as they were.
template <typename Operation, typename Model, typename... Arguments>
void expectSame(const char* name, Operation operation, Model model, const Twin& text, const Arguments&... arguments)
{
    const auto result = std::invoke(operation, text.string, given(arguments)...);
    const auto expected = std::invoke(model, text.text, modelled(arguments)...);
    if constexpr (std::is_same_v<decltype(result), const String>)
        ASSERT_TRUE(agrees(result, expected, twinsAmong(text, arguments...))) << call(text, name, arguments...);
    else
        ASSERT_TRUE(agrees(result, expected)) << call(text, name, arguments...);
}

/// Changes a string that shares its buffer with `text`, and then one that has the same text in a buffer of its own.
/// Expects both to become what the model says, in a new buffer exactly when it says so, and nothing else to change.
/// Where an argument is the very twin `text`, the changed string itself is that argument.
template <typename Change, typename Model, typename... Arguments>
void expectSameChange(const char* name, Change change, Model model, const Twin& text, const Arguments&... arguments)
{
    for (const bool shared : {true, false}) {
        Twin changed = shared || text.text == nullptr ? text : twinOf(*text.text);
        const char* const address = changed.string.Latin1();
        const bool hasBuffer = !changed.string.IsNull();
        const auto operand = [&](const auto& argument) -> const auto&
        {
            if constexpr (std::is_same_v<std::decay_t<decltype(argument)>, Twin>)
                return &argument == &text ? changed : argument;
            else
                return argument;
        };
        const reference::Text expected = std::invoke(model, changed.text, modelled(operand(arguments))...);
        std::invoke(change, changed.string, given(operand(arguments))...);

        const char* const kind = shared ? " of a shared buffer" : " of a buffer of its own";
        ASSERT_TRUE(agrees(changed.string, expected, twinsAmong(text, arguments...)))
            << call(text, name, arguments...) << kind;
        ASSERT_TRUE(!hasBuffer || (changed.string.Latin1() == address) == (expected == changed.text))
            << call(text, name, arguments...) << kind << " is to have a new buffer exactly when the model has";
    }
}

#endif
