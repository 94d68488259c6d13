#include "host/Options.h"

#include "host/Languages.h"
#include "host/Messages.h"

#include <Carbon/CarbonEvents.h>

#include <getopt.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <iterator>
#include <numeric>
#include <string_view>
#include <utility>

namespace Host {

namespace {

using Toolbox::Answer;

constexpr const char* DESCRIPTION = "Calls an external (BUNDLE, else the application's) and says what it answered.";

constexpr const char* NOTES = R"(Examples: visex-host                                 open the dialog
          visex-host --answer german --json          answer it unattended
          visex-host --app My.app --trace My.bundle  follow another external
Exit status: 0 chosen, 1 none, 2 misuse, 3 refused, 4 not loaded, 5 cut short)";

std::string inSmallLetters(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

// The decimal number that is all of `text`, or nothing when there is anything else in it or when it does not fit: it is
// never cut to fit. No blanks, no plus sign.
template <typename Integer> std::optional<Integer> parseNumber(std::string_view text)
{
    Integer number{};
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end)
        return std::nullopt;
    return number;
}

Problem wrongUsage(const std::string& line)
{
    return Problem(ExitStatus::NotDone, line + "; --help lists the options");
}

// How many letters have to be typed, taken out or changed to make one text the other.
std::size_t distance(std::string_view from, std::string_view to)
{
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t k = 0; k < to.size(); ++k) {
            const std::size_t changed = diagonal + (from[i] == to[k] ? 0 : 1);
            diagonal = std::exchange(row[k + 1], std::min({row[k] + 1, row[k + 1] + 1, changed}));
        }
    }
    return row.back();
}

// " (did you mean ...?)" with the one of `names` that is nearest to `text`; empty if none is near. A name is near when
// it begins with `text`, or when changing at most a third of the letters of `text` gives it.
std::string suggestion(const std::string& text, const std::vector<std::string>& names)
{
    const auto cost = [typed = inSmallLetters(text)](const std::string& each) {
        const std::string name = inSmallLetters(each);
        return name.rfind(typed, 0) == 0 ? 0 : distance(typed, name);
    };
    const auto nearest = std::min_element(names.begin(), names.end(),
        [&cost](const std::string& one, const std::string& other) { return cost(one) < cost(other); });
    return cost(*nearest) <= text.size() / 3 ? " (did you mean " + *nearest + "?)" : "";
}

// The one language that `text` means; else null, with what can be said of that in `*hint`.
const Language* parseLanguage(const std::string& text, std::string* hint)
{
    if (const std::optional<std::uint32_t> code = parseNumber<std::uint32_t>(text))
        return languageOfCode(*code);
    const std::vector<const Language*> meant = languagesMeant(text);
    if (meant.size() == 1)
        return meant.front();
    std::vector<std::string> names;
    for (const Language& each : LANGUAGES)
        names.insert(names.end(), {std::string(each.name), std::string(each.ownName)});
    *hint = meant.empty() ? suggestion(text, names) : std::string();
    for (const Language* const each : meant)
        *hint += (each == meant.front() ? " (it could be " : " or ") + std::string(each->name);
    *hint += meant.empty() ? "" : ")";
    return nullptr;
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

// Each of these puts the value of one option, which is empty only if it takes none, into the options.

void takeMessage(Options& options, const std::string& text)
{
    options.message = parseNumber<std::int16_t>(text);
    if (!options.message)
        throw wrongUsage("--message takes a number from -32768 to 32767, not '" + text + "'");
}

void takeCurrent(Options& options, const std::string& text)
{
    std::string hint;
    const Language* const language = parseLanguage(text, &hint);
    options.current = language != nullptr ? language->code : parseNumber<std::uint32_t>(text);
    if (!options.current)
        throw wrongUsage("--current takes a language (" + listLanguages() + ") or a code from 0 to 4294967295, not '"
            + text + "'" + hint);
}

constexpr const char* DISPLAYS[] = {"window", "terminal", "unattended"};
static_assert(std::size(DISPLAYS) == static_cast<std::size_t>(DisplayKind::Unattended) + 1, "each kind has a name");

void takeDisplay(Options& options, const std::string& text)
{
    const auto found = std::find(std::begin(DISPLAYS), std::end(DISPLAYS), text);
    if (found == std::end(DISPLAYS))
        throw wrongUsage("--display takes window, terminal or unattended, not '" + text + "'"
            + suggestion(text, {std::begin(DISPLAYS), std::end(DISPLAYS)}));
    options.display = static_cast<DisplayKind>(found - std::begin(DISPLAYS));
}

void takeAnswer(Options& options, const std::string& text)
{
    options.answers.push_back({text, parseAnswer(text)});
}

template <std::optional<std::string> Options::*PATH> void takePath(Options& options, const std::string& text)
{
    options.*PATH = text;
}

template <bool Options::*FLAG> void setFlag(Options& options, const std::string&)
{
    options.*FLAG = true;
}

void takePicture(Options& options, const std::string& text)
{
    const std::string ending = inSmallLetters(std::filesystem::path(text).extension().string());
    if (!ending.empty() && ending != ".png")
        throw wrongUsage("--picture saves a PNG, and '" + text + "' ends like something else");
    options.picture = text;
}

struct Option {
    const char* name;
    const char* value;  // what --help calls it; null if it takes none
    const char* meaning;
    void (*take)(Options& options, const std::string& text);  // called for each time that it is given
};

const Option OPTIONS[] = {
    {"--message", "N", "Message in the record [that of --record, else 1000]", takeMessage},
    {"--current", "LANG", "Current language: name, tag or Mac OS code [the user's]", takeCurrent},
    {"--display", "KIND", "window, terminal or unattended [the first available]", takeDisplay},
    {"--answer", "ANSWER", "ok, cancel, LANG or button:N, unattended; repeatable", takeAnswer},
    {"--app", "DIR", "Application bundle [the demo application]", takePath<&Options::application>},
    {"--resources", "FILE", "Resource file [the application's]", takePath<&Options::resources>},
    {"--require-admin", nullptr, "Have it ask for the administrator's right", setFlag<&Options::requireAdmin>},
    {"--record", "FILE", "Record to start from [zeros]", takePath<&Options::record>},
    {"--write-record", "FILE", "Where to store the record after the call", takePath<&Options::writeRecord>},
    {"--picture", "FILE", "Save the dialog or alert as a picture (PNG)", takePicture},
    {"--json", nullptr, "Print the answer as one JSON object", setFlag<&Options::json>},
    {"--trace", nullptr, "Write the toolbox calls to standard error", setFlag<&Options::trace>},
    {"--trace-file", "FILE", "Write the toolbox calls into a file", takePath<&Options::traceFile>},
    {"--help", nullptr, "Print this", setFlag<&Options::help>},  // also -h
    {"--version", nullptr, "Say which version this is", setFlag<&Options::version>},
};

std::string helpText()
{
    std::string text = std::string(DESCRIPTION) + "\nUsage: visex-host [OPTIONS] [BUNDLE]\n\nOptions:\n";
    for (const Option& each : OPTIONS) {
        std::string names = (each.name == std::string_view("--help") ? "  -h," : "  ") + std::string(each.name);
        names += each.value == nullptr ? "" : " " + std::string(each.value);
        names.resize(25, ' ');
        text += names + each.meaning + '\n';
    }
    return text + '\n' + NOTES + '\n';
}

// The option that `word` names, with a value or without. Only whole names count: getopt_long is content with
// beginnings, of which each could mean another option one day.
const Option& optionNamed(const std::string& word)
{
    const std::string name = word.substr(0, word.find('='));
    std::vector<std::string> names;
    for (const Option& each : OPTIONS) {
        if (each.name == name)
            return each;
        names.push_back(each.name);
    }
    throw wrongUsage("there is no option '" + word + "'" + suggestion(name, names));
}

void takeExternal(Options& options, const std::string& text)
{
    if (options.external)
        throw wrongUsage("only one external can be given, and '" + text + "' is a second");
    if (text.empty())
        throw wrongUsage("BUNDLE needs a value");
    options.external = text;
}

// Takes what getopt_long has found in `word`; a value is in optarg, and may be the next word.
void takeFound(Options& options, int found, const std::string& word)
{
    if (found == 1)  // a word that is no option
        return takeExternal(options, optarg);
    const Option& option = optionNamed(found == 'h' ? "--help" : word);
    if (found == '?')
        throw wrongUsage(std::string(option.name) + " takes no value");
    const std::string value = optarg == nullptr ? "" : optarg;
    const bool isForgotten = word == option.name && value.rfind("--", 0) == 0;
    if (option.value != nullptr && (value.empty() || isForgotten))
        throw wrongUsage(option.name + (isForgotten ? " needs a value before '" + value + "'" : " needs a value"));
    option.take(options, value);
}

std::vector<option> longOptions()
{
    std::vector<option> all;
    for (const Option& each : OPTIONS)
        all.push_back({each.name + 2, each.value == nullptr ? no_argument : required_argument, nullptr, 0});
    all.emplace_back();
    return all;
}

// Takes the words in their order, up to one that asks for a text.
void takeAll(Options& options, const std::vector<std::string>& arguments)
{
    std::vector<const char*> all(arguments.size() + 2);  // null is where the program's name would be, and at the end
    std::transform(arguments.begin(), arguments.end(), all.begin() + 1, [](auto& each) { return each.c_str(); });
    char* const* const words = const_cast<char* const*>(all.data());  // it writes into none
    const int count = static_cast<int>(arguments.size()) + 1;
    // "-": in their order, even if POSIXLY_CORRECT is set; ":": it does not say itself what is wrong.
    const auto next = [&, known = longOptions()] { return getopt_long(count, words, "-:h", known.data(), nullptr); };

    optind = 0;  // begins anew
    const char* word = words[1];
    for (int found; (found = next()) != -1; word = words[optind]) {
        takeFound(options, found, word);
        if (options.help || options.version)
            return;
    }
    for (; optind < count; ++optind)  // behind "--"
        takeExternal(options, words[optind]);
}

}  // namespace

std::variant<Options, std::string> parseOptions(const std::vector<std::string>& arguments)
{
    Options options;
    try {
        takeAll(options, arguments);
    } catch (const Problem&) {  // says that --help helps, and so it does at the end of the same line
        if (arguments.back() != "--help" && arguments.back() != "-h")
            throw;
        options.help = true;
    }
    if (options.help)
        return helpText();
    if (options.version)
        return "visex-host " HOST_VERSION "\n";
    if (options.display.value_or(DisplayKind::Unattended) != DisplayKind::Unattended && !options.answers.empty())
        throw wrongUsage("--answer is for the unattended display, and --display names another");
    return options;
}

Answer parseAnswer(const std::string& text)
{
    const std::string answer = inSmallLetters(text);
    if (answer == "ok")
        return {Answer::Kind::Command, kHICommandOK};
    if (answer == "cancel")
        return {Answer::Kind::Command, kHICommandCancel};
    if (const std::optional<SInt16> button = buttonNumber(answer))
        return {Answer::Kind::Button, static_cast<UInt32>(*button)};
    std::string hint;
    if (const Language* const language = parseLanguage(text, &hint))
        return {Answer::Kind::Item, popUpItem(*language)};
    throw Problem(ExitStatus::NotDone,
        "'" + text + "' is not an answer" + hint + ": give ok, cancel, button:N, or a language: " + listLanguages());
}

const char* nameOf(DisplayKind kind)
{
    return DISPLAYS[static_cast<std::size_t>(kind)];
}

}  // namespace Host
