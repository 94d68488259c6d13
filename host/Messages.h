// How the host ends and what it says: the exit statuses, what is thrown when it cannot go on, lines on standard error,
// and the answer on standard output.

#ifndef HOST_MESSAGES_H
#define HOST_MESSAGES_H

#include <Toolbox/OneLine.h>

#include <cstddef>
#include <initializer_list>
#include <stdexcept>
#include <string>

namespace Host {

/// What the process ends with. Scripts rely on these numbers, which README and the man page tell in full.
enum class ExitStatus {
    Chosen = 0,             // a language was written to the record
    NothingChosen = 1,      // cancelled, or stopped by the administrator check
    NotDone = 2,            // wrong usage, or a file, a display or an answer that is of no use
    Refused = 3,            // the external set its error flag, or showed an alert and wrote no language
    ExternalNotLoaded = 4,  // the external could not be loaded
    NotReturned = 5,        // code of the external, whatever it was run for, did not return, or the screen went away
};

/// Thrown where the host cannot go on; main prints it and ends. The text is one line that says what was tried and what
/// is wrong with it, without a full stop.
class Problem : public std::runtime_error {
public:
    Problem(ExitStatus exitStatus, const std::string& line)
        : std::runtime_error(line)
        , status(exitStatus)
    {
    }

    const ExitStatus status;
};

using Toolbox::isUtf8;
using Toolbox::oneLine;

/// Writes `line` to standard error, after the program's name; line breaks in it are escaped.
void complain(const std::string& line);

/// Writes these, up to eight, to standard error in one go, and allocates nothing.
void writeToStandardError(std::initializer_list<const char*> texts);

/// Where that puts what standard error does not take, so that somebody else can say it: zeros at first. Null for
/// nowhere, as it is until this is set.
constexpr std::size_t UNSAID_SIZE = 16384;
extern char* unsaid;

/// What errno says.
std::string lastError();

/// Writes the answer to standard output. Throws Problem when not all of it arrives there.
void print(const std::string& answer);

}  // namespace Host

#endif
