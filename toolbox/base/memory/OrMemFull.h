// Turns a lack of memory into the managers' word for it.

#ifndef TOOLBOX_BASE_MEMORY_ORMEMFULL_H
#define TOOLBOX_BASE_MEMORY_ORMEMFULL_H

#include <Carbon/MacMemory.h>

#include <new>

namespace Toolbox {

/// What `action` returns, an OSErr; memFullErr when it runs out of memory. No exception may leave a platform function.
template <typename Action> OSErr orMemFull(Action action)
{
    try {
        return action();
    } catch (const std::bad_alloc&) {
        return memFullErr;
    }
}

}  // namespace Toolbox

#endif
