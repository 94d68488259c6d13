#include "host/Report.h"

#include "VISEX_Plugins/LanguageSelector/HostContract.h"
#include "host/Languages.h"

#include <nlohmann/json.hpp>

#include <cstdio>

namespace Host {

namespace {

using Json = nlohmann::ordered_json;
using Toolbox::ShownAlert;

bool flagNewlySet(const Report& report)
{
    return (report.flagsAfter & ~report.flagsBefore & RESULT_FLAG_UNKNOWN_MESSAGE) != 0;
}

// ---- In words

std::string inHexadecimal(std::uint32_t flags)
{
    char digits[sizeof "0x00000000"];
    std::snprintf(digits, sizeof digits, "0x%x", flags);
    return digits;
}

std::string change(const std::string& before, const std::string& after)
{
    return before == after ? before + ", as before" : before + " -> " + after;
}

std::string alertInWords(const ShownAlert& alert)
{
    std::string words = alert.kind;
    if (alert.id)
        words += " " + std::to_string(*alert.id);
    words += ", \"" + oneLine(alert.text) + "\"";
    if (!alert.explanation.empty())
        words += ", \"" + oneLine(alert.explanation) + "\"";
    for (const std::string& title : alert.buttons)
        words += " [" + oneLine(title) + "]";
    return words + ", button " + std::to_string(alert.pressed) + " was pressed";
}

std::string outcomeInWords(const Report& report)
{
    if (report.chosen)
        return describeLanguage(*report.chosen) + " was written to the record.";
    // Whether it is newly set or not: the reason is the same.
    const bool isFlagged = (report.flagsAfter & RESULT_FLAG_UNKNOWN_MESSAGE) != 0;
    if (isFlagged && report.message != MESSAGE_SELECT_LANGUAGE)
        return "No language was written to the record: the external does not serve this message.";
    if (flagNewlySet(report) || !report.toolbox.alerts.empty())
        return "No language was written to the record: the external reported an error.";
    return "No language was written to the record.";
}

// ---- As JSON

Json languageInJson(std::uint32_t code)
{
    const Language* const language = languageOfCode(code);
    return {{"code", code}, {"name", language == nullptr ? Json() : Json(language->name)}};
}

Json alertInJson(const ShownAlert& alert)
{
    Json json;
    json["kind"] = alert.kind;
    if (alert.id)
        json["id"] = *alert.id;
    json["text"] = alert.text;
    json["explanation"] = alert.explanation;
    json["buttons"] = alert.buttons;
    json["pressed"] = alert.pressed;
    return json;
}

bool personWasAsked(const Report& report)
{
    const bool somethingShown = report.toolbox.windowShown || !report.toolbox.alerts.empty();
    return somethingShown && report.display != DisplayKind::Unattended;
}

const char* resultInJson(const Report& report)
{
    switch (statusOf(report)) {
    case ExitStatus::Chosen:
        return "chosen";
    case ExitStatus::NothingChosen:
        return "nothing chosen";
    case ExitStatus::Refused:
        return "refused";
    default:
        return "unfit answer";
    }
}

// ---- Problems

void tellOfAnswers(const Options& options, const Toolbox::CallReport& report)
{
    const bool wantedNone = !options.display && options.answers.empty();
    if (wantedNone && report.answersRanOut)
        complain("no screen here and no terminal to ask on in the foreground: nobody was asked, and the default button "
                 "was pressed");
    if (report.answerWasUnfit)
        complain("the answer '" + options.answers.at(report.answersTaken - 1).text + "' fits nothing that was shown");
    for (std::size_t i = report.answersTaken; i < options.answers.size(); ++i)
        complain("the answer '" + options.answers[i].text + "' was not needed");
}

}  // namespace

ExitStatus statusOf(const Report& report)
{
    if (report.toolbox.answerWasUnfit)
        return ExitStatus::NotDone;
    if (flagNewlySet(report) || (!report.toolbox.alerts.empty() && !report.chosen))
        return ExitStatus::Refused;
    return report.chosen ? ExitStatus::Chosen : ExitStatus::NothingChosen;
}

std::string inWords(const Report& report)
{
    std::string words = outcomeInWords(report) + "\n";
    for (const ShownAlert& alert : report.toolbox.alerts)
        words += "  alert    " + alertInWords(alert) + "\n";
    words += "  message  " + std::to_string(report.message) + "\n";
    words += "  current  " + describeLanguage(report.current) + "\n";
    // "as before", since 0 is English as well as what stands there before anybody has chosen.
    const std::string chosen = describeLanguage(report.chosen.value_or(report.chosenBefore));
    words += "  chosen   " + change(describeLanguage(report.chosenBefore), chosen) + "\n";
    return words + "  flags    " + change(inHexadecimal(report.flagsBefore), inHexadecimal(report.flagsAfter)) + "\n";
}

std::string inJson(const Report& report)
{
    Json json;
    json["message"] = report.message;
    json["current"] = languageInJson(report.current);
    json["chosen"] = report.chosen ? languageInJson(*report.chosen) : Json();
    json["flags"] = {{"before", report.flagsBefore}, {"after", report.flagsAfter}};
    json["alerts"] = Json::array();
    for (const ShownAlert& alert : report.toolbox.alerts)
        json["alerts"].push_back(alertInJson(alert));
    json["display"] = nameOf(report.display);
    json["asked"] = personWasAsked(report);
    json["result"] = resultInJson(report);
    // In ASCII: texts of the external may hold what a terminal obeys.
    return json.dump(2, ' ', true, Json::error_handler_t::replace) + "\n";
}

void tellRemarks(const std::vector<std::string>& remarks)
{
    for (const std::string& remark : remarks)
        complain(remark);
}

void tellCallProblems(const Options& options, const Toolbox::CallReport& report)
{
    tellRemarks(report.remarks);
    if (!report.displayProblem.empty())
        complain("the dialog could not go on: " + report.displayProblem);
    tellOfAnswers(options, report);
}

}  // namespace Host
