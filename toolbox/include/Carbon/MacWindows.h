// The Window Manager: showing, hiding and disposing of windows.

#ifndef CARBON_MACWINDOWS_H
#define CARBON_MACWINDOWS_H

#include <Carbon/MacTypes.h>

struct OpaqueWindowPtr;

CARBON_FUNCTIONS_BEGIN

typedef struct OpaqueWindowPtr* WindowRef;

enum {
    errInvalidWindowRef = -5600,
    windowAppModalStateAlreadyExistsErr = -5617,
    windowNoAppModalStateErr = -5618,
};

/// Makes `window` visible. No effect if it is, or on a wrong reference.
void ShowWindow(WindowRef window);

/// Makes `window` invisible. No effect if it is, or on a wrong reference.
void HideWindow(WindowRef window);

/// Disposes of `window` with its controls and the handlers installed on it; their references are dead from then on.
/// No effect on a wrong reference.
void DisposeWindow(WindowRef window);
CARBON_FUNCTIONS_END

#endif
