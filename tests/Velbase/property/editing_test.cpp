// Making texts, cutting pieces and editing against the model: what comes, and in whose buffer.

#include "drivers.h"

#include <algorithm>
#include <new>

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

void checkConstruct(const Twin& text)
{
    const char* const source = text.string.IsNull() ? nullptr : text.string.Latin1();
    ASSERT_TRUE(agrees(String(source), reference::fromCString(source), {text})) << shown(source);
    for (const unsigned maxLength : positions(text)) {
        ASSERT_TRUE(agrees(String(source, maxLength), reference::fromCString(source, maxLength), {text}))
            << shown(source) << ", at most " << maxLength;
    }
}

void checkPieces(const Twin& text)
{
    for (const unsigned position : positions(text)) {
        expectSame("Left", &String::Left, reference::left, text, position);
        expectSame("Right", &String::Right, reference::right, text, position);
        for (const checked_uint& count : optionalPositions(text))
            expectSame("Mid", &String::Mid, reference::mid, text, position, count);
    }
}

void checkAt(const Twin& text)
{
    const String& constant = text.string;
    Twin copy = text;
    for (const unsigned index : positions(text)) {
        const char expected = reference::at(text.text, index);
        ASSERT_EQ(char(constant.At(index)), expected) << call(text, "At", index);
        ASSERT_EQ(char(constant[index]), expected) << call(text, "operator[]", index) << " of a constant string";
        ASSERT_EQ(copy.string[index].ToChar(), expected) << call(text, "operator[]", index);
        ASSERT_EQ(char(Char(copy.string[index])), expected) << call(text, "operator[]", index);
    }
    ASSERT_TRUE(agrees(copy.string, copy.text, {text})) << "after reading a copy of " << shown(text);
}

void checkRemove(const Twin& text)
{
    for (const unsigned start : positions(text)) {
        for (const checked_uint& count : optionalPositions(text)) {
            expectSameChange("Remove", &String::Remove, reference::remove, text, start, count);
            if (count.valid() && count.value() < start)  // a number that start is added to wraps to this one
                expectSameChange(
                    "Remove", &String::Remove, reference::remove, text, start, checked_uint(count.value() - start));
        }
    }
}

void checkTruncate(const Twin& text)
{
    for (const unsigned length : positions(text))
        expectSameChange("Truncate", &String::Truncate, reference::truncate, text, length);
}

// Every position that a write does not extend the text too far for.
std::vector<unsigned> positionsToWrite(const Twin& text)
{
    std::vector<unsigned> all = positions(text);
    all.erase(std::remove_if(all.begin(), all.end(), [](unsigned index) { return index > 1000; }), all.end());
    return all;
}

void checkDetachAndExtend(const Twin& text)
{
    for (const unsigned index : positionsToWrite(text))
        expectSameChange("detachAndExtend", &String::detachAndExtend, reference::detachAndExtend, text, index);
}

void checkWrite(const Twin& text)
{
    const auto write = [](String& string, unsigned index, auto c) { string[index] = c; };
    const auto writeOwn = [](String& string, unsigned index, unsigned from) { string[index] = string[from]; };
    const auto modelOfOwn = [](const reference::Text& t, unsigned index, unsigned from) {
        return reference::write(t, index, reference::at(t, from));
    };
    for (const unsigned index : positionsToWrite(text)) {
        for (const char c : "x\0"sv) {
            expectSameChange("write", write, reference::write, text, index, c);
            expectSameChange("write", write, reference::write, text, index, Char(c));
        }
        for (const unsigned from : positionsToWrite(text))
            expectSameChange("writeItsOwn", writeOwn, modelOfOwn, text, index, from);
    }
}

void checkReplaceChar(const Twin& text)
{
    for (const char from : "a%\xE9\0"sv) {
        for (const char to : "ax\xA0\0"sv)
            expectSame("ReplaceChar", &String::ReplaceChar, reference::replaceChar, text, from, to);
    }
}

void checkAssign(const Twin& text, const Twin& other)
{
    expectSameChange(
        "operator=", [](String& string, const String& source) { string = source; },
        [](const reference::Text&, const reference::Text& source) { return source; }, text, other);
}

void checkAppend(const Twin& text, const Twin& tail)
{
    expectSameChange("operator+=", &String::operator+=, reference::append, text, tail);
}

void checkInsert(const Twin& text, const Twin& inserted)
{
    for (const unsigned position : positions(text))
        expectSameChange("Insert", &String::Insert, reference::insert, text, position, inserted);
}

void checkReplace(const Twin& text, const Twin& pattern)
{
    static const std::vector<Twin> texts = {nullTwin(), twinOf(""), twinOf("x"), twinOf("aa"), twinOf("\0b"s)};
    for (const Twin& replacement : texts)
        expectSame("Replace", &String::Replace, reference::replace, text, pattern, replacement);
    expectSame("Replace", &String::Replace, reference::replace, text, pattern, text);
    expectSame("Replace", &String::Replace, reference::replace, text, pattern, pattern);
}

const TextOperation EDITING_TEXT_OPERATIONS[] = {
    {"Construct", "ab\0"sv, checkConstruct},
    {"Pieces", "ab\0"sv, checkPieces},
    {"At", "ab\0"sv, checkAt},
    {"Remove", "ab\0"sv, checkRemove},
    {"Truncate", "ab\0"sv, checkTruncate},
    {"DetachAndExtend", "ab\0"sv, checkDetachAndExtend},
    {"Write", "ab\0"sv, checkWrite},
    {"ReplaceChar", "ab\0"sv, checkReplaceChar},
};

const PairOperation EDITING_PAIR_OPERATIONS[] = {
    {"Assign", "ab\0"sv, checkAssign},
    {"Append", "ab\0"sv, checkAppend},
    {"Insert", "ab\0"sv, checkInsert},
    {"Replace", "ab\0"sv, checkReplace},
};

INSTANTIATE_TEST_SUITE_P(Editing, TextProperty, testing::ValuesIn(EDITING_TEXT_OPERATIONS), RowName());
INSTANTIATE_TEST_SUITE_P(Editing, PairProperty, testing::ValuesIn(EDITING_PAIR_OPERATIONS), RowName());

TEST(ExtendingProperty, RefusesATextOf4294967296BytesAndLeavesTheStringAlone)
{
    for (const Twin& text : shortTexts("a\0"sv, 2)) {
        Twin changed = text;
        EXPECT_THROW(changed.string.detachAndExtend(0xFFFFFFFF), std::bad_alloc) << shown(text);
        EXPECT_THROW(changed.string[0xFFFFFFFF] = 'x', std::bad_alloc) << shown(text);
        EXPECT_TRUE(agrees(changed.string, changed.text, {text})) << shown(text);
    }
}

}  // namespace
