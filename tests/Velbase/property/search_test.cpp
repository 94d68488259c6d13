// Comparison and search against the model.

#include "drivers.h"

#include <utility>

using namespace std::string_view_literals;

namespace {

// Characters to look for, in both cases.
constexpr std::string_view SOUGHT = "aAbB%\xE9\xC9\0"sv;

// Each operation on either side, whatever it is to find.
const auto find = [](const String& text, const auto&... arguments) { return text.Find(arguments...); };
const auto findModel = [](const auto&... arguments) { return reference::find(arguments...); };
const auto findRev = [](const String& text, const auto&... arguments) { return text.FindRev(arguments...); };
const auto contains = [](const String& text, const auto&... arguments) { return text.Contains(arguments...); };
const auto containsModel = [](const reference::Text& text, const auto& sought, bool caseSensitive) {
    return reference::find(text, sought, 0, caseSensitive).has_value();
};

// From one position in either direction.
template <typename Character> void checkFindCharFrom(const Twin& text, Character c, unsigned from)
{
    for (const bool caseSensitive : {true, false}) {
        expectSame("Find", find, findModel, text, c, from, caseSensitive);
        expectSame("FindRev", findRev, reference::findRev, text, c, checked_uint(from), caseSensitive);
    }
}

template <typename Character> void checkFindCharFromEverywhere(const Twin& text, Character c)
{
    for (const unsigned from : positions(text))
        checkFindCharFrom(text, c, from);
    for (const bool caseSensitive : {true, false}) {
        expectSame("Contains", contains, containsModel, text, c, caseSensitive);
        expectSame("FindRev", findRev, reference::findRev, text, c, checked_uint(), caseSensitive);
    }
}

void checkFindChar(const Twin& text)
{
    for (const char c : SOUGHT) {
        checkFindCharFromEverywhere(text, c);
        checkFindCharFromEverywhere(text, Char(c));
    }
}

void checkFindText(const Twin& text, const Twin& needle)
{
    const std::string sought = reference::cString(needle.text);
    const auto findSought = [&](const reference::Text& searched, const auto&, unsigned from, bool caseSensitive) {
        return reference::find(searched, sought, from, caseSensitive);
    };
    const auto containsSought = [&](const reference::Text& searched, const auto&, bool caseSensitive) {
        return containsModel(searched, sought, caseSensitive);
    };
    for (const bool caseSensitive : {true, false}) {
        // A null pointer is allowed as a needle only where case does not count.
        const char* const pointer = caseSensitive || !needle.string.IsNull() ? needle.string.Latin1() : nullptr;
        for (const unsigned from : positions(text)) {
            expectSame("Find", find, findSought, text, needle, from, caseSensitive);
            expectSame("Find", find, findSought, text, pointer, from, caseSensitive);
        }
        expectSame("Contains", contains, containsSought, text, needle, caseSensitive);
        expectSame("Contains", contains, containsSought, text, pointer, caseSensitive);
    }
}

void checkBeginsAndEndsWith(const Twin& text, const Twin& other)
{
    for (const bool caseSensitive : {true, false}) {
        expectSame("BeginsWith", &String::BeginsWith, reference::beginsWith, text, other, caseSensitive);
        expectSame("EndsWith", &String::EndsWith, reference::endsWith, text, other, caseSensitive);
    }
}

void checkCompare(const Twin& a, const Twin& b)
{
    const int order = reference::compare(reference::bytes(a.text), reference::bytes(b.text));
    ASSERT_EQ(a.string == b.string, order == 0) << call(a, "operator==", b);
    ASSERT_EQ(a.string < b.string, order < 0) << call(a, "operator<", b);
    ASSERT_EQ(a.string <= b.string, order <= 0) << call(a, "operator<=", b);
    ASSERT_EQ(a.string == b.string.Latin1(), order == 0) << call(a, "operator==", b) << " of a C string";
    ASSERT_EQ(a.string < b.string.Latin1(), order < 0) << call(a, "operator<", b) << " of a C string";
    ASSERT_EQ(a.string <= b.string.Latin1(), order <= 0) << call(a, "operator<=", b) << " of a C string";
}

const PairOperation SEARCH_PAIR_OPERATIONS[] = {
    {"FindText", "aA\0"sv, checkFindText},
    {"FindTextOfTwoLetters", "ab\0"sv, checkFindText},
    {"BeginsAndEndsWith", "aA\0"sv, checkBeginsAndEndsWith},
    {"Compare", "a\xE9\0"sv, checkCompare},
};

INSTANTIATE_TEST_SUITE_P(
    Search, TextProperty, testing::Values(TextOperation{"FindChar", "aA\0"sv, checkFindChar}), RowName());
INSTANTIATE_TEST_SUITE_P(Search, PairProperty, testing::ValuesIn(SEARCH_PAIR_OPERATIONS), RowName());

// Long enough for blocks of every size with a rest at either end, and with little to find.
TEST(SearchProperty, AgreesOnEveryPlaceOfALongText)
{
    for (const auto& [length, step] : {std::pair(300u, 1u), {9000u, 61u}}) {
        for (unsigned place = 0; place < length && !HasFailure(); place += step) {
            std::string bytes(length, 'x');
            bytes[length / 13] = bytes[place] = 'A';
            const Twin text = twinOf(bytes);
            for (const char c : {'a', 'A'}) {
                for (const unsigned from : {0u, length / 13 + 1, place - 1, place, place + 1, length - 1})
                    checkFindCharFrom(text, c, from);
            }
        }
    }
}

TEST(SearchProperty, AgreesOnEveryTwoBytes)
{
    for (int byte = 0; byte < 256 && !HasFailure(); ++byte) {
        const Twin text = twinOf(std::string(70, static_cast<char>(byte)));
        for (int wanted = 0; wanted < 256; ++wanted) {
            checkFindCharFrom(text, static_cast<char>(wanted), 0);
            checkFindCharFrom(text, static_cast<char>(wanted), 69);
        }
    }
}

}  // namespace
