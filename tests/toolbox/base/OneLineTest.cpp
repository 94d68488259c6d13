#include <Toolbox/OneLine.h>

#include <gtest/gtest.h>

#include <tuple>

namespace {

using Toolbox::oneLine;

const std::tuple<const char*, std::string, std::string> LINE_CASES[] = {
    {"Text", "a b~\\ \u00E4\u65E5\U0001F600", "a b~\\ \u00E4\u65E5\U0001F600"},
    {"Empty", "", ""},
    {"EndsOfLines", "a\r\nb\tc", R"(a\r\nb\tc)"},
    {"Escape", "\x1B[2J", R"(\x1b[2J)"},
    {"Zero", std::string("a\0b", 3), R"(a\x00b)"},
    {"Delete", "\x1F \x7F", R"(\x1f \x7f)"},
    {"OtherControls", "\u0080\u009B2J\u009F\u00A0", "\\u0080\\u009b2J\\u009f\u00A0"},
    {"MarksOfDirection", "\u061B\u061C \u200D\u200E\u200F\u2010", "\u061B\\u061c \u200D\\u200e\\u200f\u2010"},
    {"LinesAndParagraphs", "\u2027\u2028\u2029", "\u2027\\u2028\\u2029"},
    {"Overrides", "\u202A\u202E\u202F", "\\u202a\\u202e\u202F"},
    {"Isolates", "\u2065\u2066\u2069\u206A", "\u2065\\u2066\\u2069\u206A"},
    {"NotUtf8", "\xE4\x9B\xFF", R"(\xe4\x9b\xff)"},
    {"CutShort", "\xE6\x97", R"(\xe6\x97)"},
    {"InterruptedByText", "\xE6\x97x", R"(\xe6\x97x)"},
    {"Overlong", "\xC0\xAF\xE0\x80\xAF\xF0\x80\x80\xAF", R"(\xc0\xaf\xe0\x80\xaf\xf0\x80\x80\xaf)"},
    {"FirstSurrogate", "\xED\x9F\xBF\xED\xA0\x80", "\xED\x9F\xBF\\xed\\xa0\\x80"},
    {"LastSurrogate", "\xED\xBF\xBF\xEE\x80\x80", "\\xed\\xbf\\xbf\xEE\x80\x80"},
    {"Long", std::string(8192, 'a'), std::string(8192, 'a')},
    {"TooLong", std::string(5000, 'a') + std::string(95000, 'b'),
        std::string(4096, 'a') + " \u2026 (91808 bytes left out) \u2026 " + std::string(4096, 'b')},
    {"CutBetweenCharacters",
        std::string(4095, 'a') + "\u00E9" + std::string(10000, 'b') + "\u00E9" + std::string(4095, 'c'),
        std::string(4095, 'a') + " \u2026 (10002 bytes left out) \u2026 \u00E9" + std::string(4095, 'c')},
    {"PastTheEnd", "\xF4\x8F\xBF\xBF\xF4\x90\x80\x80\xF5", "\xF4\x8F\xBF\xBF\\xf4\\x90\\x80\\x80\\xf5"},
};

TEST(OneLine, ShowsWhatIsUnseenAsEscapes)
{
    for (const auto& [name, text, line] : LINE_CASES) {
        SCOPED_TRACE(name);
        EXPECT_EQ(oneLine(text), line);
    }
}

}  // namespace
