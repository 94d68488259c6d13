// One call of the external, as its installer makes it.

#ifndef HOST_EXTERNALCALL_H
#define HOST_EXTERNALCALL_H

#include "host/PlugIn.h"
#include "host/Record.h"
#include "host/Report.h"

namespace Host {

/// Calls `plugIn` with `record` and returns what came of it. With `trace`, each call that the external makes of the
/// toolbox is a line on standard error.
Report callExternal(PlugIn& plugIn, Record& record, bool trace);

}  // namespace Host

#endif
