// The process's standard streams: held open, so that nothing else is taken for them, and written with care.

#ifndef HOST_MESSAGES_H
#define HOST_MESSAGES_H

#include <string>

namespace Host {

/// To be called first. A standard stream that the process was started without gets a file on which its use fails;
/// otherwise the next file that is opened would have its number, and the answer would be written into that. Writing to
/// a reader that has gone, or past the size that files may have, fails too, in place of ending the process.
void holdStandardStreams();

/// Writes the answer to standard output. False, with the reason in `*problem`, when not all of it arrives there.
bool printAnswer(const std::string& answer, std::string* problem);

/// Writes `line`, which need not be one, as one line to standard error, after the program's name.
void complain(const std::string& line);

}  // namespace Host

#endif
