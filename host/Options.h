// The command line: what each option means is said here once, and --help prints it.

#ifndef HOST_OPTIONS_H
#define HOST_OPTIONS_H

#include "host/Answers.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Host {

enum class DisplayKind { Window, Terminal, Unattended };

/// What was asked for. What was not given is empty, and its default is chosen where it is used.
struct Options {
    std::optional<std::int16_t> message;
    std::optional<std::uint32_t> current;  // a language code; it need not be one of the six
    std::optional<DisplayKind> display;
    std::vector<GivenAnswer> answers;
    std::optional<std::string> application;
    std::optional<std::string> resources;
    std::optional<std::string> record;
    std::optional<std::string> writeRecord;
    std::optional<std::string> picture;
    std::optional<std::string> traceFile;
    std::optional<std::string> plugIn;
    bool requireAdmin = false;
    bool json = false;
    bool trace = false;
};

/// The options in `arguments`, which follow the program's name; or, when it is asked for, the text of --help or
/// --version. Throws Problem for what it does not understand.
std::variant<Options, std::string> parseOptions(const std::vector<std::string>& arguments);

}  // namespace Host

#endif
