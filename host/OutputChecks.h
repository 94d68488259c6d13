// The files that a call is to leave behind, looked at before it is made.

#ifndef HOST_OUTPUTCHECKS_H
#define HOST_OUTPUTCHECKS_H

#include "host/Options.h"

namespace Host {

/// Throws Problem when a file that `options` name for the record, the picture or the trace could not be written, or is,
/// under whatever name, one that is read or loaded: in the bundle of the application or the external, in the host's own
/// folder, or another one that they name. Only the record that the call starts from may be written over, by the record.
/// Makes the names of these files absolute, so that they lead there wherever the external goes.
void settleOutputs(Options& options);

}  // namespace Host

#endif
