// A string of the library beside the model's text that it must equal, and the comparison of the two.

#ifndef TESTS_VELBASE_PROPERTY_TWIN_H
#define TESTS_VELBASE_PROPERTY_TWIN_H

#include "Velbase/common/common_string.h"
#include "reference.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

/// A string and its model. Copies share, on both sides.
struct Twin {
    String string;
    reference::Text text;
};

/// Both sides of a null string.
Twin nullTwin();

/// Both sides of `bytes`, zero bytes included, in a new buffer.
Twin twinOf(const std::string& bytes);

typedef std::vector<std::reference_wrapper<const Twin>> Twins;

/// Whether `string` is what the model says: null or not, the length, every byte, the zero byte behind them. And whether
/// it shares its buffer with exactly those of `others` with which the model says, each of which must still be what its
/// own model says.
testing::AssertionResult agrees(const String& string, const reference::Text& text, const Twins& others = {});

/// Whether a position is what the model says; one that was not found must hold 0.
testing::AssertionResult agrees(const checked_uint& position, const reference::Position& expected);

/// The model's form of an optional number.
reference::Position modelOf(const checked_uint& number);

/// Changes a string that shares its buffer with `text`, and then one that has the same text in a buffer of its own.
/// Whether both become what the model says, in a new buffer exactly when it says so, and nothing else changes.
/// Where `argument` is the very twin `text`, the changed string itself is the argument.
testing::AssertionResult changes(const Twin& text, const Twin& argument,
    const std::function<void(String&, const String&)>& change,
    const std::function<reference::Text(const reference::Text&, const reference::Text&)>& model);

/// The same for a change without an argument.
testing::AssertionResult changes(const Twin& text, const std::function<void(String&)>& change,
    const std::function<reference::Text(const reference::Text&)>& model);

// ---- How texts and calls are printed

/// Readable forms: "a\0b", null, 4294967295, none; of all else what GoogleTest has.
std::string shown(const reference::Text& text);
std::string shown(const String& string);
std::string shown(const Twin& twin);
std::string shown(const std::vector<Twin>& twins);
std::string shown(const reference::Position& position);
std::string shown(const checked_uint& position);
template <typename T> std::string shown(const T& other)
{
    return testing::PrintToString(other);
}

/// The call under test, as it would be written: "abc".Mid(1, 2).
template <typename Subject, typename... Arguments>
std::string call(const Subject& subject, const std::string& operation, const Arguments&... arguments)
{
    std::string list;
    ((list += (list.empty() ? "" : ", ") + shown(arguments)), ...);
    return shown(subject) + "." + operation + "(" + list + ")";
}

#endif
