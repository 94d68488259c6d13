// What went wrong around a call, or was met with on the way, without making its answer worthless.

#ifndef HOST_CALLPROBLEMS_H
#define HOST_CALLPROBLEMS_H

#include "host/Options.h"

namespace Host {

/// Says it on standard error, a line each, after a call with these options. False when a picture was wanted and there
/// is none.
bool tellCallProblems(const Options& options);

}  // namespace Host

#endif
