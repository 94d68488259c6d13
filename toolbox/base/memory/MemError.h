// What MemError answers.

#ifndef TOOLBOX_BASE_MEMORY_MEMERROR_H
#define TOOLBOX_BASE_MEMORY_MEMERROR_H

#include <Carbon/MacMemory.h>

namespace Toolbox {

/// Makes `result` the result of the last Memory Manager call.
void setMemError(OSErr result);

}  // namespace Toolbox

#endif
