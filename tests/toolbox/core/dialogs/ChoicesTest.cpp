#include "toolbox/core/dialogs/Choices.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using Toolbox::Choices;
using Toolbox::isReturnAlone;

// 0 English, 1 Japanese, 2 German, 3 French, 4 a number as a name, 5 OK, 6 Cancel, 7 the button that Return presses.
Choices languages()
{
    Choices choices;
    choices.add(QStringLiteral("English"), 1);
    choices.add(QStringLiteral("日本語 (Japanese)"), 2);
    choices.add(QStringLiteral("Deutsch / German"), 3);
    choices.add(QStringLiteral("Français – French"), 4);
    choices.add(QStringLiteral("1"), 12);
    choices.add(QStringLiteral("Okay, then"), std::nullopt, QStringLiteral("cancel"));
    choices.add(QStringLiteral("Cancel"));
    choices.add(QStringLiteral("Install"), std::nullopt, QStringLiteral("ok"));
    return choices;
}

// clang-format off
const struct {
    const char* name;
    const char* typed;
    int found;  // the index, or -1
    const char* problem = "";
} FIND_CASES[] = {
    {"Number",                        "3",                2},
    {"NumberOfTwoDigits",             "12",               4},
    {"NumberBeforeAName",             "1",                0},
    {"NumberWithBlanks",              "  2 ",             1},
    {"NumberAndName",                 "2 日本語 (Japanese)", 1},
    {"NumberAndAPartOfTheName",       "3. german",        2},
    {"NumberAndBracket",              "3)",               2},
    {"NumberAndAnotherName",          "3 English",        -1, "There is no \"3 English\" here."},
    {"WideNumber",                    "２",               1},
    {"NumberThatIsNotThere",          "5",                -1, "There is no \"5\" here."},
    {"Zero",                          "0",                -1, "There is no \"0\" here."},
    {"NegativeNumber",                "-1",               -1, "There is no \"-1\" here."},
    {"NumberBeyondEveryRange",        "99999999999999",   -1, "There is no \"99999999999999\" here."},
    {"WholeName",                     "日本語 (Japanese)", 1},
    {"FirstPart",                     "日本語",            1},
    {"OtherCase",                     "jApAnEsE",         1},
    {"WithoutAccent",                 "francais",         3},
    {"OtherCaseOfAnAccentedLetter",   "FRANÇAIS",         3},
    {"ComposedOtherwise",             "franc\u0327ais",   3},
    {"Beginning",                     "jap",              1},
    {"BeginningOfTheFirstPart",       "日",               1},
    {"BeginningOfAWholeName",         "deutsch / g",      2},
    {"MoreAfterAWord",                "ok-no, wait",      -1, "There is no \"ok-no, wait\" here."},
    {"NumberAndMore",                 "12.5",             -1, "There is no \"12.5\" here."},
    {"MiddleOfAName",                 "ench",             -1, "There is no \"ench\" here."},
    {"LongerThanTheName",             "Englisher",        -1, "There is no \"Englisher\" here."},
    {"TwoPartsBeginAlike",            "f",                3},
    {"BlanksInside",                  "okay,   then",     5},
    {"Word",                          "ok",               7},
    {"WordInCapitals",                "OK",               7},
    {"BeginningOfAWordIsNone",        "o",                5},
    {"NameBeforeAWord",               "cancel",           6},
    {"Nothing",                       "",                 -1, "Return alone means nothing here."},
    {"BlanksAlone",                   "   ",              -1, "Return alone means nothing here."},
    {"ControlCharacters",             "a\x01\f\x1b",       -1, "Arrows and such keys do nothing here."},
    {"APlaceholderIsNoPlaceholder",   "%1 %2",            -1, "There is no \"%1 %2\" here."},
};
// clang-format on

TEST(FindChoice, TakesTheSurestReading)
{
    const std::string inShort = " Choices: " + languages().inShort().toStdString() + ".";
    for (const auto& row : FIND_CASES) {
        SCOPED_TRACE(row.name);
        QString problem;
        const auto found = languages().find(QString::fromUtf8(row.typed), &problem);
        EXPECT_EQ(found ? static_cast<int>(*found) : -1, row.found);
        const std::string expected = row.problem;
        EXPECT_EQ(problem.toStdString(), expected + (expected.empty() ? "" : inShort));
    }
}

TEST(FindChoice, TakesAPartHoweverItIsSetApart)
{
    for (const char* const name : {"a (b)", "a [b]", "a / b", "a | b", "a, b", "a – b", "a — b", "a - b"}) {
        Choices choices;
        choices.add(QString::fromUtf8(name));
        QString problem;
        EXPECT_TRUE(choices.find(QStringLiteral("b"), &problem).has_value()) << name;
    }
}

TEST(FindChoice, NamesTheChoicesThatItCouldBe)
{
    Choices choices;
    choices.add(QStringLiteral("Español (Spanish)"), 1);
    choices.add(QStringLiteral("English"), 2);
    choices.add(QStringLiteral("Svenska\n(Swedish)"), 3);
    QString problem;
    EXPECT_FALSE(choices.find(QStringLiteral("E"), &problem).has_value());
    EXPECT_EQ(problem, QStringLiteral("\"E\" could be Español (Spanish) or English."));
    EXPECT_FALSE(choices.find(QStringLiteral("s"), &problem).has_value());
    EXPECT_EQ(problem, QStringLiteral("\"s\" could be Español (Spanish) or Svenska (Swedish)."));
}

TEST(FindChoice, KnowsNamesakesByTheirNumbersOnly)
{
    Choices choices;
    choices.add(QStringLiteral("Same"), 1);
    choices.add(QStringLiteral("Same"), 2);
    QString problem;
    EXPECT_FALSE(choices.find(QStringLiteral("Same"), &problem).has_value());
    EXPECT_EQ(choices.find(QStringLiteral("2"), &problem), std::optional<std::size_t>(1));
}

// clang-format off
const std::tuple<const char*, const char*, const char*> NAME_CASES[] = {
    {"Japanese",            "日本語 (Japanese)",        "Japanese"},
    {"JapaneseInBrackets",  "Japanese (日本語)",        "Japanese"},
    {"Accents",             "Français (French)",     "Fran?ais (French)"},
    {"OnlyOneLetterReads",  "A語 (Alpha)",            "A? (Alpha)"},
    {"NeitherPart",         "日本 (語)",                "?\? (?)"},
    {"OnePart",             "日本語",                   "???"},
    {"BracketsAlone",       "(日本語)",                 "(?\?\?)"},
    {"EmptyBrackets",       "日本語 ()",                "?\?? ()"},
    {"MoreBehind",          "日本 (Nippon) 語",         "?\? (Nippon) ?"},
    {"Digits",              "日本語 (11)",              "11"},
    {"Nothing",             "",                      ""},
};
// clang-format on

TEST(ReadableName, IsThePartThatCanBeRead)
{
    const auto asItIs = [](const QString& text) { return text; };
    const auto inASCII = [](QString text) {
        for (QChar& each : text)
            each = each.unicode() < 0x80 ? each : QChar(u'?');
        return text;
    };
    for (const auto& [name, fullName, readable] : NAME_CASES) {
        const QString whole = QString::fromUtf8(fullName);
        EXPECT_EQ(Toolbox::readableName(whole, asItIs), whole) << name;
        EXPECT_EQ(Toolbox::readableName(whole, inASCII).toStdString(), readable) << name;
    }
}

TEST(Requests, StandForThemselvesInAnyCase)
{
    using Toolbox::Request;
    using Toolbox::requestIn;
    for (const char* const typed : {"?", " ? ", "h", "help", "HELP"})
        EXPECT_EQ(requestIn(QString::fromUtf8(typed)), Request::Help) << typed;
    for (const char* const typed : {"q", "Q", "quit", "Exit"})
        EXPECT_EQ(requestIn(QString::fromUtf8(typed)), Request::Quit) << typed;
    for (const char* const typed : {"", "qu", "helper", "??"})
        EXPECT_EQ(requestIn(QString::fromUtf8(typed)), Request::None) << typed;
}

TEST(Choices, AreAFewWordsInShort)
{
    QString problem;
    EXPECT_FALSE(Choices().find(QStringLiteral("x"), &problem).has_value());
    EXPECT_EQ(problem, QStringLiteral("There is no \"x\" here. Choices: ."));
    Choices many;
    many.add(QStringLiteral("OK"));
    for (int number = 1; number <= 11; ++number)
        many.add(QStringLiteral("x"), number);
    const QString inShort = many.inShort().replace(QChar(QChar::Nbsp), QLatin1Char('~'));
    EXPECT_EQ(inShort, QStringLiteral("OK, 1~x, 2~x, 3~x, 4~x, 5~x, 6~x, 7~x, 8~x, 9~x, 10~x, 11~x"));
    many.add(QStringLiteral("x"), 12);
    EXPECT_TRUE(many.inShort().endsWith(QStringLiteral("11\u00A0x, ...")));
}

TEST(ReturnAlone, IsNothingButBlanks)
{
    for (const char* const typed : {"", " ", "   ", "\t", " \t ", "\u3000"})
        EXPECT_TRUE(isReturnAlone(QString::fromUtf8(typed))) << typed;
    for (const char* const typed : {"x", " x ", "\f", "\x0b", "\x01", " \x1b"})
        EXPECT_FALSE(isReturnAlone(QString::fromUtf8(typed))) << typed;
}

TEST(FindChoice, RepeatsTheBeginningOfALongText)
{
    QString problem;
    EXPECT_FALSE(languages().find(QString(40, QLatin1Char('x')), &problem).has_value());
    const QString start = QStringLiteral("There is no \"%1\" here. ");
    EXPECT_TRUE(problem.startsWith(start.arg(QString(40, QLatin1Char('x')))));
    EXPECT_FALSE(languages().find(QString(41, QLatin1Char('x')), &problem).has_value());
    EXPECT_TRUE(problem.startsWith(start.arg(QString(40, QLatin1Char('x')) + QStringLiteral("..."))));
}

}  // namespace
