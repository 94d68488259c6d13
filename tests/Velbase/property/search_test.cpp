// Comparison and search against the model.

#include "drivers.h"

using namespace std::string_view_literals;

namespace {

// Characters to look for, in both cases.
constexpr std::string_view SOUGHT = "aAbB%\xE9\xC9\0"sv;

void checkFindChar(const Twin& text)
{
    for (const char c : SOUGHT) {
        for (const bool caseSensitive : {true, false}) {
            for (const unsigned from : positions(text.string.Length())) {
                const reference::Position expected = reference::find(text.text, c, from, caseSensitive);
                ASSERT_TRUE(agrees(text.string.Find(c, from, caseSensitive), expected))
                    << call(text, "Find", c, from, caseSensitive);
                ASSERT_TRUE(agrees(text.string.Find(Char(c), from, caseSensitive), expected))
                    << call(text, "Find", c, from, caseSensitive) << " of a Char";
            }
            const bool contained = reference::find(text.text, c, 0, caseSensitive).has_value();
            ASSERT_EQ(text.string.Contains(c, caseSensitive), contained) << call(text, "Contains", c, caseSensitive);
            ASSERT_EQ(text.string.Contains(Char(c), caseSensitive), contained)
                << call(text, "Contains", c, caseSensitive) << " of a Char";
        }
    }
}

void checkFindRev(const Twin& text)
{
    std::vector<checked_uint> starts = {checked_uint()};
    for (const unsigned start : positions(text.string.Length()))
        starts.push_back(start);
    for (const char c : SOUGHT) {
        for (const bool caseSensitive : {true, false}) {
            for (const checked_uint& start : starts) {
                const reference::Position expected = reference::findRev(text.text, c, modelOf(start), caseSensitive);
                ASSERT_TRUE(agrees(text.string.FindRev(c, start, caseSensitive), expected))
                    << call(text, "FindRev", c, start, caseSensitive);
                ASSERT_TRUE(agrees(text.string.FindRev(Char(c), start, caseSensitive), expected))
                    << call(text, "FindRev", c, start, caseSensitive) << " of a Char";
            }
        }
    }
}

void checkFindText(const Twin& text, const Twin& needle)
{
    const std::string sought = reference::cString(needle.text);
    for (const bool caseSensitive : {true, false}) {
        // A null pointer is allowed as a needle only where case does not count.
        const char* const pointer = caseSensitive || !needle.string.IsNull() ? needle.string.Latin1() : nullptr;
        for (const unsigned from : positions(text.string.Length())) {
            const reference::Position expected = reference::find(text.text, sought, from, caseSensitive);
            ASSERT_TRUE(agrees(text.string.Find(needle.string, from, caseSensitive), expected))
                << call(text, "Find", needle, from, caseSensitive);
            ASSERT_TRUE(agrees(text.string.Find(pointer, from, caseSensitive), expected))
                << call(text, "Find", pointer, from, caseSensitive) << " of a C string";
        }
        const bool contained = reference::find(text.text, sought, 0, caseSensitive).has_value();
        ASSERT_EQ(text.string.Contains(needle.string, caseSensitive), contained)
            << call(text, "Contains", needle, caseSensitive);
        ASSERT_EQ(text.string.Contains(pointer, caseSensitive), contained)
            << call(text, "Contains", pointer, caseSensitive) << " of a C string";
    }
}

void checkBeginsAndEndsWith(const Twin& text, const Twin& other)
{
    for (const bool caseSensitive : {true, false}) {
        ASSERT_EQ(text.string.BeginsWith(other.string, caseSensitive),
            reference::beginsWith(text.text, other.text, caseSensitive))
            << call(text, "BeginsWith", other, caseSensitive);
        ASSERT_EQ(text.string.EndsWith(other.string, caseSensitive),
            reference::endsWith(text.text, other.text, caseSensitive))
            << call(text, "EndsWith", other, caseSensitive);
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

void checkCompareWithNullPointer(const Twin& text)
{
    const char* const none = nullptr;
    ASSERT_FALSE(text.string == none) << shown(text);
    ASSERT_FALSE(text.string < none) << shown(text);
    ASSERT_FALSE(text.string <= none) << shown(text);
}

const TextOperation TEXT_OPERATIONS[] = {
    {"FindChar", "aA\0"sv, checkFindChar},
    {"FindRev", "aA\0"sv, checkFindRev},
    {"CompareWithNullPointer", "aA\0"sv, checkCompareWithNullPointer},
};

const PairOperation PAIR_OPERATIONS[] = {
    {"FindText", "aA\0"sv, checkFindText},
    {"FindTextOfTwoLetters", "ab\0"sv, checkFindText},
    {"BeginsAndEndsWith", "aA\0"sv, checkBeginsAndEndsWith},
    {"Compare", "a\xE9\0"sv, checkCompare},
};

INSTANTIATE_TEST_SUITE_P(Search, TextProperty, testing::ValuesIn(TEXT_OPERATIONS), RowName());
INSTANTIATE_TEST_SUITE_P(Search, PairProperty, testing::ValuesIn(PAIR_OPERATIONS), RowName());

}  // namespace
