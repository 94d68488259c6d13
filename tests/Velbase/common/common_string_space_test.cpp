#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;

TEST(StringSpace, IsStrippedAroundAndSimplifiedInside)
{
    EXPECT_EQ(contents(String(" \t\n ").StripWhiteSpace()), "");
    EXPECT_EQ(contents(String("\xA0x\xA0").StripWhiteSpace()), "x");
    EXPECT_EQ(contents(String("  a b").StripWhiteSpace()), "a b");
    const String text("x y");
    EXPECT_TRUE(shareBuffer(text.StripWhiteSpace(), text));
    EXPECT_EQ(contents(String("  a \t\n b  ").SimplifyWhiteSpace()), "a b");
    EXPECT_EQ(contents(String("a\240\240b").SimplifyWhiteSpace()), "a b");
    EXPECT_EQ(contents(String("\037a").SimplifyWhiteSpace()), "\037a") << "no white space";
    EXPECT_EQ(contents(String(" \t").SimplifyWhiteSpace()), "");
}

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
