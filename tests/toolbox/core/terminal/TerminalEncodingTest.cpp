#include "toolbox/core/terminal/TerminalEncoding.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <memory>
#include <string>
#include <tuple>
#include <utility>

namespace {

using Toolbox::TerminalEncoding;

// The encoding of the locale that the environment is made to name.
std::unique_ptr<TerminalEncoding> encodingOf(const char* locale)
{
    setenv("LC_ALL", locale, 1);
    auto encoding = std::make_unique<TerminalEncoding>();
    unsetenv("LC_ALL");
    return encoding;
}

// clang-format off
const std::tuple<const char*, const char*, const char*, const char*> SHOWABLE_CASES[] = {
    {"ASCII",             "Plain & <b>text</b>",    "Plain & <b>text</b>",    "Plain & <b>text</b>"},
    {"LineFeed",          "a\nb",                   "a\nb",                   "a\nb"},
    {"Escape",            "a\x1B[31mb",             "a\\x1b[31mb",            "a\\x1b[31mb"},
    {"EveryKindOfBreak",  "a\rb\tc\vd\fe\x08" "f",  R"(a\rb\tc\x0bd\x0ce\x08f)", R"(a\rb\tc\x0bd\x0ce\x08f)"},
    {"Bell",              "a\a",                    "a\\x07",                 "a\\x07"},
    {"Delete",            "a\x7F" "b",              "a\\x7fb",                "a\\x7fb"},
    {"EightBitEscape",    "a\u009B" "31mb",         "a\\u009b31mb",           "a\\u009b31mb"},
    {"NextLine",          "a\u0085b",               "a\\u0085b",              "a\\u0085b"},
    {"Accents",           "Français Español Å",     "Français Español Å",     "Francais Espanol A"},
    {"CombiningAccent",   "e\u0301",                "e\u0301",                "e?"},
    {"Japanese",          "日本語 (Japanese)",       "日本語 (Japanese)",       "??? (Japanese)"},
    {"Ligatures",         "Œœ ﬁn ß Ææ Øø ı",        "Œœ ﬁn ß Ææ Øø ı",        "OEoe fin ss AEae Oo i"},
    {"Quotes",            "“a” „b“ «c» ‘d’ ‚e ‹f›", "“a” „b“ «c» ‘d’ ‚e ‹f›", R"("a" "b" "c" 'd' 'e 'f')"},
    {"Punctuation",       "a – b — c… • · × ⁄",     "a – b — c… • · × ⁄",     "a - b - c... * * x /"},
    {"NotAssigned",       "a\u0378",                "a?",                     "a?"},
    {"RightToLeftMark",   "a\u202Eb",               "a\\u202eb",              "a\\u202eb"},
    {"ZeroWidthSpace",    "a\u200Bb",               "a\u200Bb",               "a?b"},
    {"LineSeparator",     "a\u2028b",               "a\\u2028b",              "a\\u2028b"},
    {"AppleLogo",         "\uF8FF",                 "?",                      "?"},
    {"BeyondTheFirstPlane", "\U0001F600",           "\U0001F600",             "?"},
    {"Nothing",           "",                       "",                       ""},
};
// clang-format on

TEST(ShowableText, KeepsWhatTheEncodingHasAndIsReadableInASCII)
{
    const auto inUTF8 = encodingOf("C.UTF-8");
    const auto inASCII = encodingOf("C");
    for (const auto& [name, text, expectedInUTF8, expectedInASCII] : SHOWABLE_CASES) {
        for (const auto& [encoding, expected] : {std::pair{&*inUTF8, expectedInUTF8}, {&*inASCII, expectedInASCII}}) {
            const QString showable = encoding->showable(QString::fromUtf8(text));
            EXPECT_EQ(showable.toStdString(), expected) << name;
            EXPECT_EQ(encoding->encode(showable).toStdString(), expected) << name;
        }
    }
}

// No character but the line feed may reach a terminal as a control character, in whatever encoding.
TEST(ShowableText, HasNoControlCharacters)
{
    for (const char* const locale : {"C", "C.UTF-8"}) {
        const auto encoding = encodingOf(locale);
        for (char32_t each = 0; each < 0x10000; ++each) {
            if (each == U'\n')
                continue;
            const std::string bytes = encoding->encode(encoding->showable(QString::fromUcs4(&each, 1))).toStdString();
            for (const char byte : bytes)
                ASSERT_FALSE(static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F) << std::hex << unsigned(each);
            ASSERT_FALSE(bytes.size() == 2 && bytes[0] == '\xC2' && static_cast<unsigned char>(bytes[1]) < 0xA0)
                << std::hex << unsigned(each);
        }
    }
}

TEST(ShowableText, SurvivesHalfASurrogatePair)
{
    for (const char* const locale : {"C", "C.UTF-8"}) {
        const auto encoding = encodingOf(locale);
        EXPECT_EQ(encoding->showable(QString(QChar(0xD800))).size(), 1);
        EXPECT_EQ(encoding->showable(QString(QChar(0xDC00)) + QLatin1Char('a')).size(), 2);
    }
}

TEST(TypedBytes, AreReadInTheEncodingAndReplacedWhereTheyAreNotValid)
{
    EXPECT_EQ(encodingOf("C.UTF-8")->decode("caf\xC3\xA9 \xE6\x97\xA5"), QStringLiteral("café 日"));
    EXPECT_EQ(encodingOf("C")->decode("plain"), QStringLiteral("plain"));
    EXPECT_EQ(encodingOf("C")->decode(""), QString());
    const QChar bad(QChar::ReplacementCharacter);
    EXPECT_EQ(encodingOf("C.UTF-8")->decode("a\xFF"
                                            "b"),
        QStringLiteral("a%1b").arg(bad));
    EXPECT_EQ(encodingOf("C.UTF-8")->decode("a\xC3"), QStringLiteral("a%1").arg(bad));
    EXPECT_EQ(encodingOf("C.UTF-8")->decode("\xE2\x82"), QString(2, bad))
        << "each byte of a character that is cut short";
    EXPECT_EQ(encodingOf("C.UTF-8")->decode(QByteArray("a\0b", 3)).size(), 3);
    EXPECT_EQ(encodingOf("C")->decode("a\xC3\xA9\xFF"), QStringLiteral("aé%1").arg(bad)) << "as UTF-8";
}

TEST(TerminalColumns, AreThoseOfTheCharacter)
{
    const auto encoding = encodingOf("C.UTF-8");
    EXPECT_EQ(encoding->columns(U'a'), 1);
    EXPECT_EQ(encoding->columns(U'日'), 2);
    EXPECT_EQ(encoding->columns(0x0301), 0) << "a combining accent";
    EXPECT_EQ(encoding->columns(U'\n'), 0);
}

TEST(TerminalLocale, HasTheEncodingInItsNameWhereItIsNotInstalled)
{
    for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        setenv("LANG", "xx_YY", 1);
        for (const auto& [locale, shown] : {std::pair{"xx_YY.no-such-locale", "e"}, {"xx_YY.UTF-8", "é"},
                 {"xx_YY.utf8@euro", "é"}, {"UTF-8", "é"}, {"xx_YY", "e"}}) {
            setenv(variable, locale, 1);
            EXPECT_EQ(TerminalEncoding().showable(QStringLiteral("é")), QString::fromUtf8(shown)) << variable << locale;
        }
        unsetenv(variable);
    }
    unsetenv("LANG");
}

TEST(TerminalLocale, LeavesTheProcessAlone)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    const auto encoding = encodingOf("C.UTF-8");
    encoding->encode(encoding->showable(QStringLiteral("é")));
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
    EXPECT_EQ(uselocale(nullptr), LC_GLOBAL_LOCALE);
}

}  // namespace
