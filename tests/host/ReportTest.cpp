#include "host/Report.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using namespace Host;
using nlohmann::json;

// A call with German current and French in the field for the chosen one, which nobody wrote.
Report plainReport()
{
    Report report;
    report.message = 1000;
    report.current = 2;
    report.chosenBefore = 1;
    report.flagsBefore = report.flagsAfter = 0x80;
    return report;
}

Report chosenReport(std::uint16_t code)
{
    Report report = plainReport();
    report.chosen = code;
    return report;
}

const Toolbox::ShownAlert ALERT_5000{"stop", 5000, "Not served.", "", {"OK"}, 1};
const Toolbox::ShownAlert ERROR_BOX{"note", std::nullopt, "Language Selector Error", "Can't find <b>", {"OK"}, 1};

struct StatusCase {
    const char* name;
    bool chosen;
    std::uint32_t flagsBefore;
    std::uint32_t flagsAfter;
    bool alert;
    bool unfit;
    ExitStatus status;
};

// clang-format off
const StatusCase STATUS_CASES[] = {
    // name                    chosen before after  alert  unfit
    {"Chosen",                 true,  0, 0,          false, false, ExitStatus::Chosen},
    {"Nothing",                false, 0, 0,          false, false, ExitStatus::NothingChosen},
    {"FlagNewlySet",           false, 0, 1,          true,  false, ExitStatus::Refused},
    {"FlagNewlySetUnshown",    false, 0, 1,          false, false, ExitStatus::Refused},
    {"FlagSetAndChosen",       true,  0, 1,          false, false, ExitStatus::Refused},
    {"FlagAmongOthers",        false, 6, 7,          false, false, ExitStatus::Refused},
    {"FlagSetBefore",          false, 1, 1,          false, false, ExitStatus::NothingChosen},
    {"FlagSetBeforeAndChosen", true,  1, 1,          false, false, ExitStatus::Chosen},
    {"FlagCleared",            false, 1, 0,          false, false, ExitStatus::NothingChosen},
    {"OtherFlagSet",           false, 0, 2,          false, false, ExitStatus::NothingChosen},
    {"AlertAndNothing",        false, 0, 0,          true,  false, ExitStatus::Refused},
    {"AlertAndChosen",         true,  0, 0,          true,  false, ExitStatus::Chosen},
    {"UnfitAnswer",            false, 0, 0,          false, true,  ExitStatus::NotDone},
    {"UnfitAnswerAndAlert",    false, 0, 1,          true,  true,  ExitStatus::NotDone},
};
// clang-format on

TEST(StatusOf, FollowsFromTheReport)
{
    for (const StatusCase& row : STATUS_CASES) {
        Report report = row.chosen ? chosenReport(11) : plainReport();
        report.flagsBefore = row.flagsBefore;
        report.flagsAfter = row.flagsAfter;
        if (row.alert)
            report.toolbox.alerts.push_back(ERROR_BOX);
        report.toolbox.answerWasUnfit = row.unfit;
        EXPECT_EQ(statusOf(report), row.status) << row.name;
    }
}

TEST(InWords, TellsWhetherALanguageWasChosen)
{
    EXPECT_EQ(inWords(chosenReport(11)),
        "Japanese (11) was written to the record.\n"
        "  message  1000\n"
        "  current  German (2)\n"
        "  chosen   French (1) -> Japanese (11)\n"
        "  flags    0x80, as before\n");
    EXPECT_EQ(inWords(plainReport()),
        "No language was written to the record.\n"
        "  message  1000\n"
        "  current  German (2)\n"
        "  chosen   French (1), as before\n"
        "  flags    0x80, as before\n");
}

TEST(InWords, TellsOfAMessageThatIsNotServed)
{
    Report report = plainReport();
    report.message = -1;
    report.current = 4;
    report.flagsAfter = 0xFFFFFF81;
    report.toolbox.alerts = {ALERT_5000};
    EXPECT_EQ(inWords(report),
        "No language was written to the record: the external does not serve this message.\n"
        "  alert    stop 5000, \"Not served.\" [OK], button 1 was pressed\n"
        "  message  -1\n"
        "  current  unknown (4)\n"
        "  chosen   French (1), as before\n"
        "  flags    0x80 -> 0xffffff81\n");
}

TEST(InWords, GivesTheReasonWhetherTheFlagWasSetBeforeOrNot)
{
    for (const std::uint32_t before : {0u, 1u}) {
        Report report = plainReport();
        report.flagsBefore = before;
        report.flagsAfter = 1;
        report.message = 999;
        report.toolbox.alerts = {ALERT_5000};
        EXPECT_EQ(inWords(report).rfind(
                      "No language was written to the record: the external does not serve this message.\n", 0),
            0u);
        report.message = 1000;
        EXPECT_EQ(
            inWords(report).rfind("No language was written to the record: the external reported an error.\n", 0), 0u);
        report.toolbox.alerts.clear();
        EXPECT_EQ(inWords(report).find("reported an error") != std::string::npos, before == 0);
    }
}

TEST(InWords, TellsOfEveryAlertInItsOrderEachInALine)
{
    Report report = plainReport();
    report.toolbox.alerts = {ERROR_BOX, {"caution", std::nullopt, "Sure?", "", {"Yes", "No"}, 2},
        {"note", std::nullopt, "one\rtwo\nthree\x1B[2J", "four\tfive\x7F", {"O\nK"}, 1}};
    const std::string words = inWords(report);
    EXPECT_NE(words.find(
                  "  alert    note, \"Language Selector Error\", \"Can't find <b>\" [OK], button 1 was pressed\n"
                  "  alert    caution, \"Sure?\" [Yes] [No], button 2 was pressed\n"
                  "  alert    note, \"one\\rtwo\\nthree\\x1b[2J\", \"four\\tfive\\x7f\" [O\\nK], button 1 was pressed\n"
                  "  message"),
        std::string::npos)
        << words;
}

TEST(InJson, SaysNullForWhatIsNotThere)
{
    Report report = plainReport();
    report.current = 4;
    const json parsed = json::parse(inJson(report));
    EXPECT_EQ(parsed["current"], json::parse(R"({"code": 4, "name": null})"));
    EXPECT_EQ(parsed["chosen"], json());
    EXPECT_EQ(parsed["result"], "nothing chosen");
    report.toolbox.answerWasUnfit = true;
    EXPECT_EQ(json::parse(inJson(report))["result"], "unfit answer");
}

TEST(InJson, TellsHowTheAnswerCameAbout)
{
    Report report = plainReport();
    const auto cameAbout = [&report] {
        const json parsed = json::parse(inJson(report));
        return parsed["display"].get<std::string>() + (parsed["asked"].get<bool>() ? ", asked" : "");
    };
    report.display = DisplayKind::Window;
    EXPECT_EQ(cameAbout(), "window") << "nothing was shown";
    report.toolbox.windowShown = true;
    EXPECT_EQ(cameAbout(), "window, asked");
    report.display = DisplayKind::Unattended;
    EXPECT_EQ(cameAbout(), "unattended");
    report.toolbox.windowShown = false;
    report.display = DisplayKind::Terminal;
    report.toolbox.alerts = {ALERT_5000};
    EXPECT_EQ(cameAbout(), "terminal, asked");
}

TEST(InJson, EscapesWhatATerminalObeysAndReplacesWhatIsNoText)
{
    Report report = plainReport();
    const char* const text = u8"one\ntwo & \"three\"\x7F\u009B2J\u202E";
    report.toolbox.alerts = {{"note", std::nullopt, text, "bad \xFF byte", {}, 0}};
    EXPECT_EQ(json::parse(inJson(report))["alerts"][0]["text"], text);
    EXPECT_NE(inJson(report).find(R"(\"three\"\u007f\u009b2J\u202e")"), std::string::npos);
    EXPECT_NE(inJson(report).find(R"("bad \ufffd byte")"), std::string::npos);
}

}  // namespace
