// What of the environment the host does not pass on to the libraries that it loads.

#ifndef HOST_ENVIRONMENT_H
#define HOST_ENVIRONMENT_H

namespace Host {

/// Takes out the variables that would have foreign plug-ins loaded into the process. To be called before anything of
/// the toolbox is.
void clearPlugInPaths();

}  // namespace Host

#endif
