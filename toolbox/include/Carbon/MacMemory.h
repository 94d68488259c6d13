// The Memory Manager: pointers, handles and raw bytes.

#ifndef CARBON_MACMEMORY_H
#define CARBON_MACMEMORY_H

#include <Carbon/MacTypes.h>

CARBON_FUNCTIONS_BEGIN

enum {
    memFullErr = -108,    // no memory, or a negative size
    nilHandleErr = -109,  // the handle is null
    memWZErr = -111,      // the handle or pointer is dead or was never the Memory Manager's
};

/// A new block of `size` bytes, to be given to DisposePtr; a size of 0 is valid.
/// Null, with MemError memFullErr, for a negative size or when there is no memory.
/// The platform leaves the contents to chance; this one gives zeros, so that a word read before it is written is null.
Ptr NewPtr(Size size);

/// Frees a block of NewPtr. Null and pointers that NewPtr did not give, or that were freed, are ignored; MemError is
/// then memWZErr.
void DisposePtr(Ptr block);

/// The bytes of `handle`'s block; 0 and MemError nilHandleErr for null, memWZErr for a dead or foreign handle.
Size GetHandleSize(Handle handle);

/// Keeps the block of `handle` where it is until HUnlock. Here no block ever moves, locked or not.
/// Only MemError tells of a wrong handle: nilHandleErr, memWZErr.
void HLock(Handle handle);

/// Takes back HLock, with the same errors.
void HUnlock(Handle handle);

/// The result of the last Memory Manager call: noErr or one of the codes above.
OSErr MemError(void);

/// Copies `count` bytes; source first. The blocks may overlap. A count of 0 or less copies nothing, nor does null.
/// MemError is noErr.
void BlockMoveData(const void* source, void* destination, Size count);

/// Bit number `bit` from `bytes` on, counted from the most significant bit of the first byte: 1 set, 0 clear.
/// For null and for negative numbers 0. Leaves MemError alone.
Boolean BitTst(const void* bytes, long bit);
CARBON_FUNCTIONS_END

#endif
