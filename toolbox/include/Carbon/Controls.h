// The Control Manager: finding controls and reading and setting their values.

#ifndef CARBON_CONTROLS_H
#define CARBON_CONTROLS_H

#include <Carbon/MacWindows.h>

CARBON_FUNCTIONS_BEGIN

typedef struct OpaqueControlRef* ControlRef;

CARBON_STRUCTURES_BEGIN
/// What a control is known by: the signature of whoever made it, and a number among its own.
typedef struct ControlID {
    OSType signature;
    SInt32 id;
} ControlID;
CARBON_STRUCTURES_END

enum {
    errUnknownControl = -30584,
};

/// The control of `window` with the signature and number in `*id`, at whatever depth, in `*control`, which is null
/// after a failure. Of several, the first in the nib's order. It stays the window's.
/// Returns noErr; paramErr for a null pointer; errInvalidWindowRef; errUnknownControl when the window has none.
OSStatus GetControlByID(WindowRef window, const ControlID* id, ControlRef* control);

/// The value of `control`: a pop-up's item number from 1, a button's state. 0 for a wrong reference.
SInt32 GetControl32BitValue(ControlRef control);

/// Sets the value of `control`, or the nearer end of its range. No effect on a wrong reference.
void SetControl32BitValue(ControlRef control, SInt32 value);
CARBON_FUNCTIONS_END

#endif
