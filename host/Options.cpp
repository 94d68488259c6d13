#include "host/Options.h"

#include "host/Languages.h"
#include "host/Messages.h"

#include <Carbon/CarbonEvents.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string_view>

namespace Host {

namespace {

using Toolbox::Answer;

constexpr const char* DESCRIPTION = "Calls an external (BUNDLE, else the application's) and says what it answered.";

constexpr const char* NOTES = R"(Examples: visex-host                                 open the dialog
          visex-host --answer german --json          answer it unattended
          visex-host --app My.app --trace My.bundle  follow another external
Exit status: 0 chosen, 1 not, 2 misuse, 3 refused, 4 not loaded, 5 cut short)";

Problem wrongUsage(const std::string& line)
{
    return Problem(ExitStatus::NotDone, line + "; --help lists the options");
}

std::int16_t parseMessage(const std::string& text)
{
    const std::optional<std::int16_t> message = parseNumber<std::int16_t>(text);
    if (!message)
        throw wrongUsage("--message takes a number from -32768 to 32767, and '" + text + "' is none");
    return *message;
}

std::uint32_t parseCurrent(const std::string& text)
{
    if (const Language* const language = parseLanguage(text))
        return language->code;
    const std::optional<std::uint32_t> code = parseNumber<std::uint32_t>(text);
    if (!code)
        throw wrongUsage(
            "--current takes a language, " + listLanguages() + ", or its code, and '" + text + "' is neither");
    return *code;
}

DisplayKind parseDisplay(const std::string& text)
{
    if (text == "window")
        return DisplayKind::Window;
    if (text == "terminal")
        return DisplayKind::Terminal;
    if (text == "unattended")
        return DisplayKind::Unattended;
    throw wrongUsage("--display takes window, terminal or unattended, and '" + text + "' is none of them");
}

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

// Each of these puts the value of one option, which is never empty, into the options.

void takeMessage(Options& options, const std::string& text)
{
    options.message = parseMessage(text);
}

void takeCurrent(Options& options, const std::string& text)
{
    options.current = parseCurrent(text);
}

void takeDisplay(Options& options, const std::string& text)
{
    options.display = parseDisplay(text);
}

void takeAnswer(Options& options, const std::string& text)
{
    options.answers.push_back(parseAnswer(text));
}

template <std::optional<std::string> Options::*PATH> void takePath(Options& options, const std::string& text)
{
    options.*PATH = text;
}

void takePicture(Options& options, const std::string& text)
{
    std::string ending = std::filesystem::path(text).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(), [](unsigned char c) { return std::tolower(c); });
    if (!ending.empty() && ending != ".png")
        throw wrongUsage("--picture saves a PNG, and '" + text + "' ends like something else");
    options.picture = text;
}

struct Option {
    const char* name;
    const char* value;  // what --help calls it
    const char* meaning;
    void (*take)(Options& options, const std::string& text);  // called for each time that it is given
};

const Option OPTIONS[] = {
    {"--message", "N", "Message in the record [1000]", takeMessage},
    {"--current", "LANG", "Current language: English name or code [user's]", takeCurrent},
    {"--display", "KIND", "window, terminal or unattended [the first here]", takeDisplay},
    {"--answer", "ANSWER", "ok, cancel, LANG or button:N, unattended; repeatable", takeAnswer},
    {"--app", "DIR", "Application bundle [the demo application]", takePath<&Options::application>},
    {"--resources", "FILE", "Resource file [the application's]", takePath<&Options::resources>},
    {"--record", "FILE", "Record to start from [zeros]", takePath<&Options::record>},
    {"--write-record", "FILE", "Where to store the record after the call", takePath<&Options::writeRecord>},
    {"--picture", "FILE", "Save the dialog or alert as a picture (PNG)", takePicture},
    {"--trace-file", "FILE", "Write its toolbox calls into a file", takePath<&Options::traceFile>},
};

struct Flag {
    const char* name;
    const char* meaning;
    bool Options::*flag;
};

const Flag FLAGS[] = {
    {"--require-admin", "Have it ask for the administrator's right", &Options::requireAdmin},
    {"--json", "Print the answer as one JSON object", &Options::json},
    {"--trace", "Write its toolbox calls to standard error", &Options::trace},
};

// Leaves out the section on BUNDLE, which the first line of --help has explained.
class HelpFormatter : public CLI::Formatter {
    std::string make_positionals(const CLI::App*) const override { return std::string(); }
};

// CLI11 says what is wrong in its own words; these are ours.
Problem describe(const CLI::ParseError& error, const CLI::App& commandLine)
{
    const std::vector<std::string> unexpected = commandLine.remaining();
    if (!unexpected.empty()) {
        const bool isOption = unexpected.front().substr(0, 1) == "-";
        return wrongUsage(
            (isOption ? "there is no option '" : "one external at a time, and not also '") + unexpected.front() + "'");
    }
    const std::string text = error.what();
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr
        && text.find("flag override") != std::string::npos)
        return wrongUsage("--" + text.substr(0, text.find(' ')) + " takes no value");
    const bool lacksValue = text.substr(0, 2) == "--";  // as in "--message: 1 required TEXT missing"
    return wrongUsage(lacksValue ? text.substr(0, text.find(':')) + " needs a value" : text);
}

void addPlugIn(CLI::App& app, Options& options)
{
    const auto take = [&options](const std::string& text) {
        if (text.empty())
            throw wrongUsage("BUNDLE needs a value");
        options.plugIn = text;
    };
    app.add_option_function<std::string>("BUNDLE", take);
}

void addOption(CLI::App& app, const Option& option, Options& options)
{
    const auto take = [&option, &options](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            if (text.empty())
                throw wrongUsage(std::string(option.name) + " needs a value");
            option.take(options, text);
        }
    };
    app.add_option_function<std::vector<std::string>>(option.name, take, option.meaning)
        ->option_text(option.value)
        ->allow_extra_args(false);  // one value each time
}

}  // namespace

std::variant<Options, std::string> parseOptions(const std::vector<std::string>& arguments)
{
    Options options;
    CLI::App app(DESCRIPTION, "visex-host");
    app.formatter(std::make_shared<HelpFormatter>());
    app.get_formatter()->column_width(25);
    app.footer(NOTES);
    addPlugIn(app, options);
    for (const Option& option : OPTIONS)
        addOption(app, option, options);
    for (const Flag& flag : FLAGS)
        app.add_flag(flag.name, options.*flag.flag, flag.meaning)->disable_flag_override();
    app.set_help_flag("--help", "Print this");
    app.set_version_flag("--version", "visex-host " HOST_VERSION, "Say which version this is");

    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));  // it takes them last first
    } catch (const CLI::CallForHelp&) {
        return app.help();
    } catch (const CLI::CallForVersion& version) {
        return std::string(version.what()) + '\n';
    } catch (const CLI::ParseError& error) {
        throw describe(error, app);
    }

    if (options.display.value_or(DisplayKind::Unattended) != DisplayKind::Unattended && !options.answers.empty())
        throw wrongUsage("--answer is for the unattended display, and --display names another");
    return options;
}

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
