// BlockMoveData and BitTst: raw bytes.

#include <Carbon/MacMemory.h>

#include "toolbox/base/TracedCall.h"
#include "toolbox/base/memory/MemError.h"

#include <cstring>

using namespace Toolbox;

void BlockMoveData(const void* source, void* destination, Size count)
{
    const TracedCall call("BlockMoveData", source, destination, count);
    if (source != nullptr && destination != nullptr && count > 0)
        std::memmove(destination, source, static_cast<std::size_t>(count));
    setMemError(noErr);
}

Boolean BitTst(const void* bytes, long bit)
{
    TracedCall call("BitTst", bytes, bit);
    if (bytes == nullptr || bit < 0)
        return call.gives(Boolean(0));
    const unsigned byte = static_cast<const UInt8*>(bytes)[bit / 8];
    return call.gives(static_cast<Boolean>((byte & (0x80U >> (bit % 8))) != 0));
}
