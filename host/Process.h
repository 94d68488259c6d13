// What of the environment the host does not pass on to the libraries that it loads.

#ifndef HOST_PROCESS_H
#define HOST_PROCESS_H

#include <vector>

namespace Host {

/// The variables by which foreign code could get into the process: those of the libraries that it loads, not those of
/// the loader itself, which has read its own before any code runs.
const std::vector<const char*>& plugInVariables();

/// Takes these variables out of the environment. To be called before anything of
/// the toolbox is.
void clearPlugInPaths();

}  // namespace Host

#endif
