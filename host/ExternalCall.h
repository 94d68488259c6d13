// One call of the external, as its installer makes it.

#ifndef HOST_EXTERNALCALL_H
#define HOST_EXTERNALCALL_H

#include "host/External.h"
#include "host/Record.h"
#include "host/Report.h"

#include <Toolbox/Trace.h>

namespace Host {

/// Calls `plugIn` with `record` and returns what came of it. `trace`, if it is not empty, is given a line for each call
/// that the external makes of the toolbox.
Report callExternal(PlugIn& plugIn, Record& record, const Toolbox::TraceSink& trace);

}  // namespace Host

#endif
