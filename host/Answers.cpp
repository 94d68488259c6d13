#include "host/Answers.h"

#include "host/Languages.h"
#include "host/Number.h"
#include "host/Problem.h"

#include <Carbon/CarbonEvents.h>

#include <optional>
#include <string_view>

namespace Host {

namespace {

using Toolbox::Answer;

constexpr std::string_view BUTTON_PREFIX = "button:";

// The number of an alert's button, or nothing when `text` is no such answer.
std::optional<SInt16> buttonNumber(std::string_view text)
{
    if (text.substr(0, BUTTON_PREFIX.size()) != BUTTON_PREFIX)
        return std::nullopt;
    const std::optional<SInt16> number = parseNumber<SInt16>(text.substr(BUTTON_PREFIX.size()));
    return number.value_or(0) > 0 ? number : std::nullopt;
}

// How many answers at the end lie whole within the last `unusedSteps`.
std::ptrdiff_t countUnused(const std::vector<GivenAnswer>& answers, std::size_t unusedSteps)
{
    auto each = answers.rbegin();
    for (; each != answers.rend() && unusedSteps >= each->steps.size(); ++each)
        unusedSteps -= each->steps.size();
    return each - answers.rbegin();
}

}  // namespace

GivenAnswer parseAnswer(const std::string& text)
{
    if (text == "ok")
        return {text, {{Answer::Kind::Command, kHICommandOK}}};
    if (text == "cancel")
        return {text, {{Answer::Kind::Command, kHICommandCancel}}};
    if (const std::optional<SInt16> button = buttonNumber(text))
        return {text, {{Answer::Kind::Button, static_cast<UInt32>(*button)}}};
    if (const Language* const language = parseLanguage(text))
        return {text, {{Answer::Kind::Item, popUpItem(*language)}, {Answer::Kind::Command, kHICommandOK}}};
    throw Problem(ExitStatus::NotDone,
        "'" + text + "' is no answer: give ok, cancel, button:N, or a language: " + listLanguages());
}

std::vector<Answer> stepsOf(const std::vector<GivenAnswer>& answers)
{
    std::vector<Answer> steps;
    for (const GivenAnswer& each : answers)
        steps.insert(steps.end(), each.steps.begin(), each.steps.end());
    return steps;
}

std::string lastUsedAnswer(const std::vector<GivenAnswer>& answers, std::size_t unusedSteps)
{
    const auto used = answers.rbegin() + countUnused(answers, unusedSteps);
    return used == answers.rend() ? std::string() : used->text;
}

std::vector<std::string> unusedAnswers(const std::vector<GivenAnswer>& answers, std::size_t unusedSteps)
{
    std::vector<std::string> unused;
    for (auto each = answers.end() - countUnused(answers, unusedSteps); each != answers.end(); ++each)
        unused.push_back(each->text);
    return unused;
}

}  // namespace Host
