// The trace point that every public function of the toolbox passes: one line a call, for whoever debugs an external.

#ifndef TOOLBOX_TRACE_H
#define TOOLBOX_TRACE_H

#include <functional>
#include <string>

namespace Toolbox {

/// Takes one line, without its end: `Function(argument, argument) = result`.
using TraceSink = std::function<void(const std::string& line)>;

/// Gives each call from now on to `sink`, when it returns; an empty sink switches it off. Calls that the toolbox makes
/// to itself are left out.
void SetTrace(TraceSink sink);

}  // namespace Toolbox

#endif
