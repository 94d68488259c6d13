#include "host/Options.h"

#include "host/Languages.h"
#include "host/Number.h"
#include "host/Problem.h"

#include <CLI/CLI.hpp>

namespace Host {

namespace {

constexpr const char* DESCRIPTION = "Calls an external as its installer would, and says what it answered.";

constexpr const char* NOTES = R"(Answers, for the unattended display, in the order in which they are needed:
  ok, cancel         press that button of the dialog
  LANG               choose that language, by name or code, and press OK
  button:N           press button N of an alert
When none is left, the dialog is confirmed as it stands and an alert takes its
default button. Answers without --display choose the unattended display.

With --record, what is not given comes from the file.

Exit status:
  0   a language was chosen
  1   nothing was chosen: cancelled, or stopped by the administrator check
  2   wrong usage, or a file, a display, an answer or standard output that is
      of no use; also when the picture or the record could not be saved
  3   the external set its error flag, or showed an alert and chose nothing
  4   the external could not be loaded
  5   the call did not return: the screen went away, or the external ended the
      process; the record was not saved
)";

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
        throw wrongUsage("--current takes a language code or one of the six languages, and '" + text + "' is neither");
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

struct Option {
    const char* name;
    const char* value;  // what --help calls it
    const char* meaning;
    void (*take)(Options& options, const std::string& text);  // called for each time that it is given
};

const Option OPTIONS[] = {
    {"--message", "N", "Message in the record [1000]", takeMessage},
    {"--current", "LANG", "Current language, by code or English name\n[the user's own, else English]", takeCurrent},
    {"--display", "KIND", "window, terminal or unattended\n[the first that there is here]", takeDisplay},
    {"--answer", "ANSWER", "Answer for the unattended display; repeatable", takeAnswer},
    {"--app", "DIR", "Application bundle [the demo application]", takePath<&Options::application>},
    {"--resources", "FILE", "Resource file [the application's]", takePath<&Options::resources>},
    {"--record", "FILE", "Record to start from [zeros]", takePath<&Options::record>},
    {"--write-record", "FILE", "Where to store the record after the call", takePath<&Options::writeRecord>},
    {"--picture", "FILE", "Save the dialog as a picture (PNG)", takePath<&Options::picture>},
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
    app.add_option_function<std::string>("BUNDLE", take, "The external [the one that the application has]")
        ->option_text(" ");
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

}  // namespace Host
