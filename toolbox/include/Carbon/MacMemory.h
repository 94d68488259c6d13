// The Memory Manager: pointers, handles and raw bytes.

#ifndef CARBON_MACMEMORY_H
#define CARBON_MACMEMORY_H

#include <Carbon/MacTypes.h>

CARBON_FUNCTIONS_BEGIN

enum {
    memFullErr = -108,  // no memory, as other managers say it
};

/// A new block of `size` bytes, to be given to DisposePtr; a size of 0 is valid.
/// Null for a negative size or when there is no memory.
/// The platform leaves the contents to chance; this one gives zeros, so that a word read before it is written is null.
Ptr NewPtr(Size size);

/// Frees a block of NewPtr. Null and pointers that NewPtr did not give, or that were freed, are ignored.
void DisposePtr(Ptr block);

/// The bytes of `handle`'s block; 0 for null, and for a dead or foreign handle.
Size GetHandleSize(Handle handle);

/// Keeps the block of `handle` where it is until HUnlock. Here no block ever moves, locked or not.
void HLock(Handle handle);

/// Takes back HLock.
void HUnlock(Handle handle);

/// Copies `count` bytes; source first. The blocks may overlap. A count of 0 or less copies nothing, nor does null.
void BlockMoveData(const void* source, void* destination, Size count);

/// Bit number `bit` from `bytes` on, counted from the most significant bit of the first byte: 1 set, 0 clear.
/// For null and for negative numbers 0.
Boolean BitTst(const void* bytes, long bit);
CARBON_FUNCTIONS_END

#endif
