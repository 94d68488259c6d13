#include "Velbase/common/common_string.h"
#include "string_contents.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

struct SpaceCase {
    const char* name;
    Bytes text;
    Bytes stripped;
    bool sharesWhenStripped;
    Bytes simplified;
    bool sharesWhenSimplified;
};

// clang-format off
const SpaceCase SPACE_CASES[] = {
    // name                  text                     stripped          shares simplified   shares
    {"None",                 "abc",                   "abc",            true,  "abc",       false},
    {"OneInside",            "x y",                   "x y",            true,  "x y",       false},
    {"RunInside",            "x \t\n y",              "x \t\n y",       true,  "x y",       false},
    {"Before",               " abc",                  "abc",            false, "abc",       false},
    {"After",                "abc ",                  "abc",            false, "abc",       false},
    {"AroundAndInside",      "  a \t\n b  ",          "a \t\n b",       false, "a b",       false},
    {"EveryKind",            "\t\n\v\f\r \xA0x",      "x",              false, "x",         false},
    {"EveryKindInside",      "a\tb\nc\vd\fe\rf\xA0g", "a\tb\nc\vd\fe\rf\xA0g", true, "a b c d e f g", false},
    {"OnlyWhiteSpace",       " \t\n ",                "",               false, "",          false},
    {"OneSpace",             " ",                     "",               false, "",          false},
    {"NoBreakSpaces",        "\xA0x\xA0",             "x",              false, "x",         false},
    {"NoBreakSpacesInside",  "a\xA0\xA0" "b",         "a\xA0\xA0" "b",  true,  "a b",       false},
    {"UnitSeparatorIsNone",  "\x1F" "a",              "\x1F" "a",       true,  "\x1F" "a",  false},
    {"NextLineIsNone",       "\x85" "a",              "\x85" "a",       true,  "\x85" "a",  false},
    {"NullIsNull",           NULL_STRING,             NULL_STRING,      false, NULL_STRING, false},
    {"EmptyIsShared",        "",                      "",               true,  "",          true},
    {"ZeroBytesAreText",     " \0 a\0 "sv,            "\0 a\0"sv,       false, "\0 a\0"sv,  false},
    {"OneCharacter",         "x",                     "x",              true,  "x",         false},
};
// clang-format on

class StringSpace : public testing::TestWithParam<SpaceCase> { };

TEST_P(StringSpace, StripTakesItAwayAround)
{
    const String text = stringOf(GetParam().text);
    const String stripped = text.StripWhiteSpace();
    EXPECT_EQ(contents(stripped), GetParam().stripped);
    EXPECT_EQ(shareBuffer(stripped, text), GetParam().sharesWhenStripped);
    EXPECT_EQ(contents(text), GetParam().text);
}

TEST_P(StringSpace, SimplifyMakesOneSpaceOfItInside)
{
    const String text = stringOf(GetParam().text);
    const String simplified = text.SimplifyWhiteSpace();
    EXPECT_EQ(contents(simplified), GetParam().simplified);
    EXPECT_EQ(shareBuffer(simplified, text), GetParam().sharesWhenSimplified);
    EXPECT_EQ(contents(text), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Cases, StringSpace, testing::ValuesIn(SPACE_CASES), RowName());

// The words of `text` with one space between: the rule once more, word by word.
std::string wordsOf(const std::string& text)
{
    std::string words;
    bool afterSpace = false;
    for (const char c : text) {
        if (Char(c).IsSpace()) {
            afterSpace = true;
            continue;
        }
        if (afterSpace && !words.empty())
            words += ' ';
        afterSpace = false;
        words += c;
    }
    return words;
}

// Long enough for several blocks, with something to simplify at every place of them.
TEST(StringSpace, IsSimplifiedAtEveryPlaceOfALongText)
{
    std::string simple;
    while (simple.size() < 300)
        simple += "some words ";
    for (const std::string& space : {" "s, "\t"s, "\xA0"s, "  "s, " \n "s, "\0"s}) {
        for (std::size_t i = 0; i <= simple.size(); ++i) {
            std::string text = simple;
            text.insert(i, space);
            ASSERT_EQ(contents(stringOf(text).SimplifyWhiteSpace()), wordsOf(text)) << i;
        }
    }
}

TEST(StringSpace, EveryByteIsSimplifiedInALongText)
{
    for (int byte = 0; byte < 256; ++byte) {
        std::string text(150, 'x');
        text[100] = text[120] = text[121] = static_cast<char>(byte);
        EXPECT_EQ(contents(stringOf(text).SimplifyWhiteSpace()), wordsOf(text)) << byte;
    }
}

}  // namespace
