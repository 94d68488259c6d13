#include "host/Environment.h"

#include <cstdlib>
#include <initializer_list>

namespace Host {

void clearPlugInPaths()
{
    for (const char* const variable : {"QT_PLUGIN_PATH", "QT_QPA_PLATFORM_PLUGIN_PATH"})
        unsetenv(variable);
}

}  // namespace Host
