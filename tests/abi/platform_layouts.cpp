// The layouts that the external shares with the Mac: the platform's structures, by byte, on the 32-bit target.
// Sources: the Mac's own headers, which pack Carbon's structures to two bytes there.

#include <Carbon/Carbon.h>
#include <Security/Authorization.h>

#include <cstddef>

static_assert(sizeof(void*) == 4, "the target has 32-bit pointers");
static_assert(sizeof(long) == 4, "and 32-bit longs");
static_assert(sizeof(bool) == 4, "and a bool of four bytes");
static_assert(static_cast<char>(-1) < 0, "and a signed char");

static_assert(sizeof(Rect) == 8);
static_assert(sizeof(FSRef) == 80);
static_assert(sizeof(CFUUIDBytes) == 16);

static_assert(sizeof(ControlID) == 8);
static_assert(offsetof(ControlID, id) == 4);

static_assert(sizeof(EventTypeSpec) == 8);
static_assert(offsetof(EventTypeSpec, eventKind) == 4);

static_assert(sizeof(HICommand) >= 14);  // clang says 14, GCC 16: the external asks for 14 bytes of it
static_assert(offsetof(HICommand, commandID) == 4);
static_assert(offsetof(HICommand, menu.menuRef) == 8);
static_assert(offsetof(HICommand, menu.menuItemIndex) == 12);

static_assert(sizeof(AlertStdAlertParamRec) == 24);
static_assert(offsetof(AlertStdAlertParamRec, movable) == 0);
static_assert(offsetof(AlertStdAlertParamRec, helpButton) == 1);
static_assert(offsetof(AlertStdAlertParamRec, filterProc) == 2);
static_assert(offsetof(AlertStdAlertParamRec, defaultText) == 6);
static_assert(offsetof(AlertStdAlertParamRec, cancelText) == 10);
static_assert(offsetof(AlertStdAlertParamRec, otherText) == 14);
static_assert(offsetof(AlertStdAlertParamRec, defaultButton) == 18);
static_assert(offsetof(AlertStdAlertParamRec, cancelButton) == 20);
static_assert(offsetof(AlertStdAlertParamRec, position) == 22);

static_assert(sizeof(AlertStdCFStringAlertParamRec) == 28);
static_assert(offsetof(AlertStdCFStringAlertParamRec, version) == 0);
static_assert(offsetof(AlertStdCFStringAlertParamRec, movable) == 4);
static_assert(offsetof(AlertStdCFStringAlertParamRec, helpButton) == 5);
static_assert(offsetof(AlertStdCFStringAlertParamRec, defaultText) == 6);
static_assert(offsetof(AlertStdCFStringAlertParamRec, cancelText) == 10);
static_assert(offsetof(AlertStdCFStringAlertParamRec, otherText) == 14);
static_assert(offsetof(AlertStdCFStringAlertParamRec, defaultButton) == 18);
static_assert(offsetof(AlertStdCFStringAlertParamRec, cancelButton) == 20);
static_assert(offsetof(AlertStdCFStringAlertParamRec, position) == 22);
static_assert(offsetof(AlertStdCFStringAlertParamRec, flags) == 24);

static_assert(sizeof(AuthorizationItem) == 16);
static_assert(offsetof(AuthorizationItem, valueLength) == 4);
static_assert(offsetof(AuthorizationItem, value) == 8);
static_assert(offsetof(AuthorizationItem, flags) == 12);
static_assert(sizeof(AuthorizationItemSet) == 8);
static_assert(offsetof(AuthorizationItemSet, items) == 4);
