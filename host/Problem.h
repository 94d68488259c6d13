// How the host ends: the exit statuses, and what is thrown when it cannot go on.

#ifndef HOST_PROBLEM_H
#define HOST_PROBLEM_H

#include <stdexcept>
#include <string>

namespace Host {

/// What the process ends with. Scripts rely on these numbers.
enum class ExitStatus {
    Chosen = 0,           // a language was written to the record
    NothingChosen = 1,    // cancelled, or stopped by the administrator check
    NotDone = 2,          // wrong usage, or a file, a display or an answer that is of no use
    Refused = 3,          // the external set its error flag, or showed an alert and wrote no language
    PlugInNotLoaded = 4,  // no call was made
    NotReturned = 5,      // the process was ended from inside the call
};

/// Thrown by whatever cannot go on; main prints it and ends. The text is one line that says what was tried and what is
/// wrong with it, without a full stop.
class Problem : public std::runtime_error {
public:
    Problem(ExitStatus exitStatus, const std::string& line)
        : std::runtime_error(line)
        , status(exitStatus)
    {
    }

    const ExitStatus status;
};

}  // namespace Host

#endif
