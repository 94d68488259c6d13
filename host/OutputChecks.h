// The files that a call is to leave behind, looked at before it is made.

#ifndef HOST_OUTPUTCHECKS_H
#define HOST_OUTPUTCHECKS_H

#include "host/Options.h"

namespace Host {

/// Throws Problem when a file that `options` name for the record or the picture could not be written, when there is no
/// folder for that of the trace, or when one of them is, under whatever name, one that is read or loaded: in the bundle
/// of the application or the external, in the host's own folder, or another one that they name. Only the record that
/// the call starts from may be written over, by the record. Makes the names of these files absolute, so that they lead
/// there wherever the external goes.
void settleOutputs(Options& options);

}  // namespace Host

#endif
