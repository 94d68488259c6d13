// Handles as the toolbox's other managers make them, and the code that they return when memory runs out. To the callers
// a handle is the address of an address.

#ifndef TOOLBOX_BASE_MEMORY_MEMORYMANAGER_H
#define TOOLBOX_BASE_MEMORY_MEMORYMANAGER_H

#include <Carbon/MacMemory.h>

#include <cstddef>
#include <new>

namespace Toolbox {

/// The zeros that follow the data of every handle, which may be read and written like it, in bytes.
constexpr std::size_t HANDLE_SLACK = 1024;

/// A new handle to a copy of the `size` bytes from `data` on, to be given to freeHandle; null when there is no memory.
Handle makeHandle(const void* data, std::size_t size);

/// Frees the block of `handle` and forgets the handle, which is then dead. A wrong handle is ignored.
void freeHandle(Handle handle);

/// What `action` returns, an OSErr; memFullErr when it runs out of memory. The managers of toolbox_base answer so; out
/// of the functions of toolbox_core std::bad_alloc leaves.
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
