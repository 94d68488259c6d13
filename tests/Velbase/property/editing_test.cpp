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
    for (const unsigned maxLength : positions(text.string.Length())) {
        ASSERT_TRUE(agrees(String(source, maxLength), reference::fromCString(source, maxLength), {text}))
            << shown(source) << ", at most " << maxLength;
    }
}

void checkLeftAndRight(const Twin& text)
{
    for (const unsigned count : positions(text.string.Length())) {
        ASSERT_TRUE(agrees(text.string.Left(count), reference::left(text.text, count), {text}))
            << call(text, "Left", count);
        ASSERT_TRUE(agrees(text.string.Right(count), reference::right(text.text, count), {text}))
            << call(text, "Right", count);
    }
}

void checkMid(const Twin& text)
{
    for (const unsigned start : positions(text.string.Length())) {
        ASSERT_TRUE(agrees(text.string.Mid(start), reference::mid(text.text, start), {text}))
            << call(text, "Mid", start);
        for (const unsigned count : positions(text.string.Length())) {
            ASSERT_TRUE(agrees(text.string.Mid(start, count), reference::mid(text.text, start, count), {text}))
                << call(text, "Mid", start, count);
        }
    }
}

void checkAt(const Twin& text)
{
    const String& constant = text.string;
    Twin copy = text;
    for (const unsigned index : positions(text.string.Length())) {
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
    const unsigned length = text.string.Length();
    for (const unsigned start : positions(length)) {
        std::vector<checked_uint> counts = {checked_uint()};
        for (const unsigned n : positions(length)) {
            counts.push_back(n);
            if (n < start)
                counts.push_back(n - start);  // start + count wraps to `n`
        }
        for (const checked_uint& count : counts) {
            ASSERT_TRUE(changes(
                text, [&](String& string) { string.Remove(start, count); },
                [&](const reference::Text& t) { return reference::remove(t, start, modelOf(count)); }))
                << call(text, "Remove", start, count);
        }
    }
}

void checkTruncate(const Twin& text)
{
    for (const unsigned length : positions(text.string.Length())) {
        ASSERT_TRUE(changes(
            text, [&](String& string) { string.Truncate(length); },
            [&](const reference::Text& t) { return reference::truncate(t, length); }))
            << call(text, "Truncate", length);
    }
}

// Every position that a write does not extend the text too far for.
std::vector<unsigned> positionsToWrite(const Twin& text)
{
    std::vector<unsigned> all = positions(text.string.Length());
    all.erase(std::remove_if(all.begin(), all.end(), [](unsigned index) { return index > 1000; }), all.end());
    return all;
}

void checkDetachAndExtend(const Twin& text)
{
    for (const unsigned index : positionsToWrite(text)) {
        ASSERT_TRUE(changes(
            text, [&](String& string) { string.detachAndExtend(index); },
            [&](const reference::Text& t) { return reference::detachAndExtend(t, index); }))
            << call(text, "detachAndExtend", index);
    }
}

void checkWrite(const Twin& text)
{
    for (const unsigned index : positionsToWrite(text)) {
        for (const char c : "x\0"sv) {
            const auto model = [&](const reference::Text& t) { return reference::write(t, index, c); };
            ASSERT_TRUE(changes(
                text, [&](String& string) { string[index] = c; }, model))
                << call(text, "operator[]", index) << " = " << shown(c);
            ASSERT_TRUE(changes(
                text, [&](String& string) { string[index] = Char(c); }, model))
                << call(text, "operator[]", index) << " = Char(" << shown(c) << ")";
        }
    }
}

void checkWriteOwnCharacter(const Twin& text)
{
    for (const unsigned index : positionsToWrite(text)) {
        for (const unsigned from : positionsToWrite(text)) {
            ASSERT_TRUE(changes(
                text, [&](String& string) { string[index] = string[from]; },
                [&](const reference::Text& t) { return reference::write(t, index, reference::at(t, from)); }))
                << call(text, "operator[]", index) << " = its operator[](" << from << ")";
        }
    }
}

void checkAssign(const Twin& text, const Twin& other)
{
    ASSERT_TRUE(changes(
        text, other, [](String& string, const String& source) { string = source; },
        [](const reference::Text&, const reference::Text& source) { return source; }))
        << call(text, "operator=", other);
}

void checkAppend(const Twin& text, const Twin& tail)
{
    ASSERT_TRUE(changes(
        text, tail, [](String& string, const String& a) { string += a; }, reference::append))
        << call(text, "operator+=", tail);
}

void checkInsert(const Twin& text, const Twin& inserted)
{
    for (const unsigned position : positions(text.string.Length())) {
        ASSERT_TRUE(changes(
            text, inserted, [&](String& string, const String& a) { string.Insert(position, a); },
            [&](const reference::Text& t, const reference::Text& a) { return reference::insert(t, position, a); }))
            << call(text, "Insert", position, inserted);
    }
}

void checkReplace(const Twin& text, const Twin& pattern)
{
    static const std::vector<Twin> texts = {nullTwin(), twinOf(""), twinOf("x"), twinOf("aa"), twinOf("\0b"s)};
    Twins replacements(texts.begin(), texts.end());
    replacements.insert(replacements.end(), {text, pattern});
    for (const Twin& replacement : replacements) {
        ASSERT_TRUE(agrees(text.string.Replace(pattern.string, replacement.string),
            reference::replace(text.text, pattern.text, replacement.text), {text, pattern, replacement}))
            << call(text, "Replace", pattern, replacement);
    }
}

void checkReplaceChar(const Twin& text)
{
    for (const char from : "a%\xE9\0"sv) {
        for (const char to : "ax\xA0\0"sv) {
            ASSERT_TRUE(agrees(text.string.ReplaceChar(from, to), reference::replaceChar(text.text, from, to), {text}))
                << call(text, "ReplaceChar", from, to);
        }
    }
}

const TextOperation TEXT_OPERATIONS[] = {
    {"Construct", "ab\0"sv, checkConstruct},
    {"LeftAndRight", "ab\0"sv, checkLeftAndRight},
    {"Mid", "ab\0"sv, checkMid},
    {"At", "ab\0"sv, checkAt},
    {"Remove", "ab\0"sv, checkRemove},
    {"Truncate", "ab\0"sv, checkTruncate},
    {"DetachAndExtend", "ab\0"sv, checkDetachAndExtend},
    {"Write", "ab\0"sv, checkWrite},
    {"WriteOwnCharacter", "ab\0"sv, checkWriteOwnCharacter},
    {"ReplaceChar", "ab\0"sv, checkReplaceChar},
};

const PairOperation PAIR_OPERATIONS[] = {
    {"Assign", "ab\0"sv, checkAssign},
    {"Append", "ab\0"sv, checkAppend},
    {"Insert", "ab\0"sv, checkInsert},
    {"Replace", "ab\0"sv, checkReplace},
};

INSTANTIATE_TEST_SUITE_P(Editing, TextProperty, testing::ValuesIn(TEXT_OPERATIONS), RowName());
INSTANTIATE_TEST_SUITE_P(Editing, PairProperty, testing::ValuesIn(PAIR_OPERATIONS), RowName());

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
