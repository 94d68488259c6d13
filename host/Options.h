// The command line: what was asked for on it, and the answers. What each option means is in the table in Options.cpp.

#ifndef HOST_OPTIONS_H
#define HOST_OPTIONS_H

#include <Toolbox/Displays.h>

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Host {

/// One answer: as it was typed, and what it means.
struct GivenAnswer {
    std::string text;
    Toolbox::Answer meaning;
};

enum class DisplayKind { Window, Terminal, Unattended };  // Window is the toolbox's screen display

/// As it is typed: "window".
const char* nameOf(DisplayKind kind);

/// What was asked for. What was not given is empty, and its default is chosen where it is used.
struct Options {
    std::optional<std::int16_t> message;
    std::optional<std::uint32_t> current;  // a language code; it need not be one that is offered
    std::optional<DisplayKind> display;
    std::vector<GivenAnswer> answers;
    std::optional<std::string> application;
    std::optional<std::string> resources;
    std::optional<std::string> record;
    std::optional<std::string> writeRecord;
    std::optional<std::string> picture;
    std::optional<std::string> traceFile;
    std::optional<std::string> external;
    bool requireAdmin = false;
    bool json = false;
    bool trace = false;
    bool help = false;  // this and the next make parseOptions give a text instead
    bool version = false;
};

/// The options in `arguments`, which follow the program's name; or, when it is asked for, the text of --help or
/// --version. Throws Problem for what it does not understand.
std::variant<Options, std::string> parseOptions(const std::vector<std::string>& arguments);

/// Understands "ok", "cancel" and "button:N", in any case, and a language, which means choosing it and then OK: its
/// name in English or in the language itself, a unique beginning of one, its tag or its code. Throws Problem for
/// anything else.
Toolbox::Answer parseAnswer(const std::string& text);

}  // namespace Host

#endif
