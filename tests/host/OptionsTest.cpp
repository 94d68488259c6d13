#include "host/Options.h"

#include "tests/host/ProblemOf.h"

#include <Carbon/CarbonEvents.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace {

using namespace Host;
using Arguments = std::vector<std::string>;

Options options(const Arguments& arguments)
{
    return std::get<Options>(parseOptions(arguments));
}

TEST(Options, AreEmptyWhenNothingIsGiven)
{
    const Options none = options({});
    EXPECT_TRUE(none.answers.empty());
    EXPECT_FALSE(none.message || none.current || none.display || none.application || none.resources || none.record);
    EXPECT_FALSE(none.writeRecord || none.picture || none.traceFile || none.external);
    EXPECT_FALSE(none.requireAdmin || none.json || none.trace);
}

TEST(Options, AreTakenAllAtOnce)
{
    const Options all = options({"--message", "999", "--current", "german", "--display", "unattended", "--answer", "ok",
        "--answer", "button:2", "--app", "an app", "--resources", "r", "--require-admin", "--record", "in",
        "--write-record", "out", "--picture", "p.png", "--trace-file", "calls", "--json", "--trace", "a.bundle"});
    EXPECT_EQ(all.message, 999);
    EXPECT_EQ(all.current, 2u);
    EXPECT_EQ(all.display, DisplayKind::Unattended);
    ASSERT_EQ(all.answers.size(), 2u);
    EXPECT_EQ(all.answers[0].text, "ok");
    EXPECT_EQ(all.answers[1].text, "button:2");
    EXPECT_EQ(all.application, "an app");
    EXPECT_EQ(all.resources, "r");
    EXPECT_EQ(all.record, "in");
    EXPECT_EQ(all.writeRecord, "out");
    EXPECT_EQ(all.picture, "p.png");
    EXPECT_EQ(all.traceFile, "calls");
    EXPECT_EQ(all.external, "a.bundle");
    EXPECT_TRUE(all.requireAdmin);
    EXPECT_TRUE(all.json);
    EXPECT_TRUE(all.trace);
}

TEST(Options, TakeEveryValueOfTheirKindAlsoJoinedRepeatedAndEnded)
{
    EXPECT_EQ(options({"--message=-1"}).message, -1);
    EXPECT_EQ(options({"--app=x=y"}).application, "x=y");
    EXPECT_EQ(options({"--message", "1", "--message", "2"}).message, 2) << "the last counts";
    EXPECT_EQ(options({"a.bundle", "--answer", "ok"}).answers.size(), 1u);
    EXPECT_EQ(options({"--answer", "ok", "a.bundle"}).external, "a.bundle");
    EXPECT_EQ(options({"--", "--json"}).external, "--json");
    for (const int message : {32767, -32768})
        EXPECT_EQ(options({"--message", std::to_string(message)}).message, message);
    const std::pair<const char*, std::uint32_t> languages[] = {
        {"4", 4}, {"4294967295", 4294967295}, {"SPANISH", 6}, {"deutsch", 2}, {"06", 6}};
    for (const auto& [text, code] : languages)
        EXPECT_EQ(options({"--current", text}).current, code);
    for (const DisplayKind kind : {DisplayKind::Window, DisplayKind::Terminal, DisplayKind::Unattended})
        EXPECT_EQ(options({"--display", nameOf(kind)}).display, kind);
    EXPECT_EQ(options({"--display", "terminal"}).display, DisplayKind::Terminal);
    for (const char* const name : {"p.png", "P.PNG", "picture", "a.folder/picture", ".png"})
        EXPECT_EQ(options({"--picture", name}).picture, name);
}

TEST(Options, HelpNamesThemAllAndFitsATerminalAndTheVersionALine)
{
    const std::string help = std::get<std::string>(parseOptions({"--help"}));
    for (const Arguments& asking :
        {Arguments{"-h", "a"}, {"--force", "--help"}, {"a", "b", "-h"}, {"--help", "--force"}})
        EXPECT_EQ(std::get<std::string>(parseOptions(asking)), help) << asking.front();
    for (const char* const name : {"--message N", "--current LANG", "--display KIND", "--answer ANSWER", "--app DIR",
             "--resources FILE", "--require-admin", "--record FILE", "--write-record FILE", "--picture FILE", "--json",
             "--trace-file FILE", "--trace ", "-h,--help", "--version", "BUNDLE", "Exit status", " 0 chosen", " 1 none",
             " 2 misuse", " 3 refused", " 4 not loaded", " 5 cut short", "Examples"})
        EXPECT_NE(help.find(name), std::string::npos) << name;
    EXPECT_LE(std::count(help.begin(), help.end(), '\n'), 24);
    std::size_t start = 0;
    for (std::size_t end; (end = help.find('\n', start)) != std::string::npos; start = end + 1)
        EXPECT_LE(end - start, 80u) << help.substr(start, end - start);
    EXPECT_EQ(start, help.size()) << "the last line has an end";
    const std::string version = std::get<std::string>(parseOptions({"--version", "--force"}));
    EXPECT_EQ(version.find("visex-host "), 0u);
    EXPECT_EQ(version.find('\n'), version.size() - 1);
}

struct WrongCase {
    const char* name;
    Arguments arguments;
    std::string line;
};

const std::string NO_MESSAGE = "--message takes a number from -32768 to 32767, not ";
const std::string NO_LANGUAGE = "--current takes a language (English (0), Japanese (11), German (2), French (1), "
                                "Italian (3), Spanish (6)) or a code from 0 to 4294967295, not ";
const std::string NO_DISPLAY = "--display takes window, terminal or unattended, not ";
const std::string NOT_UNATTENDED = "--answer is for the unattended display, and --display names another";

const WrongCase WRONG_CASES[] = {
    {"UnknownOption", {"--force"}, "there is no option '--force'"},
    {"BeginningOfAnOption", {"--mess", "1"}, "there is no option '--mess' (did you mean --message?)"},
    {"BeginningWithAValue", {"--pic=p"}, "there is no option '--pic=p' (did you mean --picture?)"},
    {"OptionMisspelt", {"--verrsion"}, "there is no option '--verrsion' (did you mean --version?)"},
    {"UnknownShortOption", {"-x"}, "there is no option '-x'"},
    {"OptionWithOneDash", {"-json"}, "there is no option '-json' (did you mean --json?)"},
    {"SecondBundle", {"a", "b"}, "only one external can be given, and 'b' is a second"},
    {"SecondBundleLikeAnOption", {"--", "a", "--json"}, "only one external can be given, and '--json' is a second"},
    {"EmptySecondBundle", {"a", ""}, "only one external can be given, and '' is a second"},
    {"EmptyBundle", {""}, "BUNDLE needs a value"},
    {"NoValue", {"--message"}, "--message needs a value"},
    {"AnOptionForAValue", {"--write-record", "--json"}, "--write-record needs a value before '--json'"},
    {"NoJoinedValueBeforeAnOption", {"--write-record=", "--json"}, "--write-record needs a value"},
    {"EmptyPath", {"--app", ""}, "--app needs a value"},
    {"MessageTooLarge", {"--message", "32768"}, NO_MESSAGE + "'32768'"},
    {"MessageTooSmall", {"--message", "-32769"}, NO_MESSAGE + "'-32769'"},
    {"MessageThatWouldWrap", {"--message", "66536"}, NO_MESSAGE + "'66536'"},
    {"MessageNoNumber", {"--message", "1000x"}, NO_MESSAGE + "'1000x'"},
    {"ValueForAFlag", {"--json=3"}, "--json takes no value"},
    {"EmptyValueForAFlag", {"--json="}, "--json takes no value"},
    {"CurrentNoLanguage", {"--current", "klingon"}, NO_LANGUAGE + "'klingon'"},
    {"CurrentNegative", {"--current", "-1"}, NO_LANGUAGE + "'-1'"},
    {"CurrentPast32Bits", {"--current", "4294967296"}, NO_LANGUAGE + "'4294967296'"},
    {"CurrentMisspelt", {"--current", "Deutshc"}, NO_LANGUAGE + "'Deutshc' (did you mean Deutsch?)"},
    {"CurrentTooFarFromAny", {"--current", "Gean"}, NO_LANGUAGE + "'Gean'"},  // two letters of German are missing
    {"CurrentOfTwo", {"--current", "E"}, NO_LANGUAGE + "'E' (it could be English or Spanish)"},
    {"PictureOfAnotherKind", {"--picture", "x.jpg"}, "--picture saves a PNG, and 'x.jpg' ends like something else"},
    {"DisplayUnknownIsTheFirstMistake", {"--display", "tv", "--message", "x"}, NO_DISPLAY + "'tv'"},
    {"DisplayMisspelt", {"--display", "Windw"}, NO_DISPLAY + "'Windw' (did you mean window?)"},
    {"AnswerForAWindow", {"--display", "window", "--answer", "ok"}, NOT_UNATTENDED},
    {"AnswerForATerminal", {"--answer", "ok", "--display", "terminal"}, NOT_UNATTENDED},
};

TEST(WrongOptions, AreRefusedInOneLine)
{
    for (const WrongCase& row : WRONG_CASES)
        EXPECT_EQ(problemOf([&] { parseOptions(row.arguments); }), row.line + "; --help lists the options") << row.name;
}

// ---- Answers

using Kind = Toolbox::Answer::Kind;

TEST(ParseAnswer, UnderstandsCommandsButtonsAndLanguages)
{
    const struct {
        std::vector<const char*> texts;
        Kind kind;
        UInt32 value;
    } answers[] = {
        {{"ok", "OK"}, Kind::Command, kHICommandOK},
        {{"cancel", "Cancel"}, Kind::Command, kHICommandCancel},
        {{"button:2", "Button:2"}, Kind::Button, 2},
        {{"button:32767"}, Kind::Button, 32767},
        {{"Japanese", "japanese", "11", "ja", "JAP", "日本語"}, Kind::Item, 2},
    };
    for (const auto& [texts, kind, value] : answers) {
        for (const char* const text : texts) {
            EXPECT_EQ(parseAnswer(text).kind, kind) << text;
            EXPECT_EQ(parseAnswer(text).value, value) << text;
        }
    }
}

TEST(ParseAnswer, RefusesAnythingElseWithAWordOnIt)
{
    EXPECT_EQ(
        problemOf([] { parseAnswer("germna"); }).find("'germna' is not an answer (did you mean German?): give"), 0u);
    for (const char* const text : {"maybe", "e", "4", "-1", "button", "button:", "button:0", "button:-1",
             "button:32768", "button:one", "button:1 ", "ok "}) {
        const std::string refusal = problemOf([&] { parseAnswer(text); });
        EXPECT_NE(refusal.find("'" + std::string(text) + "'"), std::string::npos) << refusal;
    }
}

}  // namespace
