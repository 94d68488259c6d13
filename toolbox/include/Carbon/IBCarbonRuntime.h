// Nib services: windows made from the archives of Interface Builder.

#ifndef CARBON_IBCARBONRUNTIME_H
#define CARBON_IBCARBONRUNTIME_H

#include <Carbon/MacWindows.h>
#include <CoreFoundation/CFBase.h>

CARBON_FUNCTIONS_BEGIN

typedef struct OpaqueIBNibRef* IBNibRef;

enum {
    kIBCarbonRuntimeCantFindNibFile = -10960,
    kIBCarbonRuntimeObjectNotOfRequestedType = -10961,
    kIBCarbonRuntimeCantFindObject = -10962,
};

/// Opens the nib `name` (no extension) of the running application's main bundle, and reads its file, which may change
/// or go from then on. What stands in it is looked at when a window is made.
/// `*nib` is then the caller's, to be given to DisposeNibReference; it is null after a failure.
/// Returns noErr; paramErr for a null or wrong argument; kIBCarbonRuntimeCantFindNibFile when there is no such nib, or
/// no `objects.xib` in it that can be read: a regular file of at most 2 MiB.
OSStatus CreateNibReference(CFStringRef name, IBNibRef* nib);

/// Makes a new window, hidden, from the object called `name` in the nib's name table, the first of that name.
/// `*window` is then the caller's, to be given to DisposeWindow; it is null after a failure.
/// Returns noErr; paramErr for a null or wrong argument; kIBCarbonRuntimeCantFindObject when the nib has no such
/// object, or is corrupt there or as XML; kIBCarbonRuntimeObjectNotOfRequestedType when it is no window.
OSStatus CreateWindowFromNib(IBNibRef nib, CFStringRef name, WindowRef* window);

/// Closes the nib. Windows made from it live on. No effect on a wrong reference.
void DisposeNibReference(IBNibRef nib);
CARBON_FUNCTIONS_END

#endif
