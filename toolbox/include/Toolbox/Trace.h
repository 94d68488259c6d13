// The trace point that every public function of the toolbox passes: one line a call, for whoever debugs an external.

#ifndef TOOLBOX_TRACE_H
#define TOOLBOX_TRACE_H

#include <functional>
#include <string>

namespace Toolbox {

/// Takes one line, without its end: `Function(argument, argument) = result`, or `Function(argument, argument) ...` of a
/// call that is to call the external's code.
using TraceSink = std::function<void(const std::string& line)>;

/// Gives each call from now on to `sink` when it returns, and also before it calls the external's code, whose calls so
/// stand between the two lines. An empty sink switches it off. Calls that the toolbox makes to itself are left out.
void SetTrace(TraceSink sink);

}  // namespace Toolbox

#endif
