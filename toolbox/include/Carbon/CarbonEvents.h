// The Carbon Event Manager: events, their parameters, the handlers installed for them, and modal loops.

#ifndef CARBON_CARBONEVENTS_H
#define CARBON_CARBONEVENTS_H

#include <Carbon/Controls.h>

CARBON_FUNCTIONS_BEGIN

typedef struct OpaqueEventRef* EventRef;
typedef struct OpaqueEventTargetRef* EventTargetRef;
typedef struct OpaqueEventHandlerRef* EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef* EventHandlerCallRef;
typedef struct OpaqueMenuRef* MenuRef;

typedef FourCharCode EventParamName;
typedef FourCharCode EventParamType;
typedef UInt32 MenuCommand;
typedef UInt16 MenuItemIndex;

/// A handler: noErr when it has dealt with the event, eventNotHandledErr to pass it on; any other result ends it too.
typedef OSStatus (*EventHandlerProcPtr)(EventHandlerCallRef next, EventRef event, void* userData);
typedef EventHandlerProcPtr EventHandlerUPP;  // the same pointer where code is Mach-O

CARBON_STRUCTURES_BEGIN
typedef struct EventTypeSpec {
    UInt32 eventClass;
    UInt32 eventKind;
} EventTypeSpec;

/// A command and where it came from: 14 bytes on the target.
typedef struct HICommand {
    UInt32 attributes;  // one of kHICommandFrom..., or 0 where the origin is unknown
    UInt32 commandID;
    struct {
        MenuRef menuRef;
        MenuItemIndex menuItemIndex;
    } menu;
} HICommand;
CARBON_STRUCTURES_END

enum {
    kEventClassCommand = 'cmds',
};

enum {
    kEventCommandProcess = 1,
};

enum {
    kEventParamDirectObject = '----',
    typeHICommand = 'hcmd',
};

enum {
    kHICommandOK = 'ok  ',
    kHICommandCancel = 'not!',
};

enum {
    kHICommandFromMenu = 1,
    kHICommandFromControl = 2,
    kHICommandFromWindow = 4,
};

enum {
    eventHandlerAlreadyInstalledErr = -9866,
    eventInternalErr = -9868,
    eventParameterNotFoundErr = -9870,
    eventNotHandledErr = -9874,
};

/// The target of `window`'s events, null for a wrong reference. It lives as long as the window.
EventTargetRef GetWindowEventTarget(WindowRef window);

/// The procedure as a universal procedure pointer, to be given to DisposeEventHandlerUPP.
EventHandlerUPP NewEventHandlerUPP(EventHandlerProcPtr procedure);

/// Gives the pointer back. Handlers installed with it stay installed.
void DisposeEventHandlerUPP(EventHandlerUPP upp);

/// Has `handler` called, before those installed earlier, with `userData` for each of the `count` kinds of event in
/// `types`, until the target goes. The handler may dispose of its own window, or install others, which then do not get
/// the event that is being sent. `*installed` may be asked for or null.
/// Returns noErr; paramErr for a null or dead target, a null procedure or a null list;
/// eventHandlerAlreadyInstalledErr when this procedure already stands on this target for one of the events.
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, UInt32 count, const EventTypeSpec* types,
    void* userData, EventHandlerRef* installed);

/// The class of `event`, 0 for a wrong reference.
UInt32 GetEventClass(EventRef event);

/// The kind of `event` within its class, 0 for a wrong reference.
UInt32 GetEventKind(EventRef event);

/// Copies the first `size` bytes, at most, of the parameter `name` to `data`. The type must be the stored one: nothing
/// is converted. `*actualType` and `*actualSize`, the full size, may be asked for or null.
/// Returns noErr, also when the buffer was too small; eventParameterNotFoundErr for another name or type; paramErr for
/// a wrong event, or for null `data` with a size.
OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type, EventParamType* actualType,
    UInt32 size, UInt32* actualSize, void* data);

/// Lets the person work in `window`, and only there, until QuitAppModalLoopForWindow for the same window.
/// It neither shows nor hides nor disposes of the window. Loops of different windows may nest.
/// Returns noErr; errInvalidWindowRef; windowAppModalStateAlreadyExistsErr when that window has a loop already;
/// eventInternalErr when the display cannot go on (a closed terminal, a window that is not shown or that nothing could
/// ever end). Once it has returned, and once its end was asked for, no handler gets another command of the window.
OSStatus RunAppModalLoopForWindow(WindowRef window);

/// Ends the loop of `window`; one that surrounds others ends when those have. A window that is disposed of inside its
/// loop ends that as well.
/// Returns noErr, errInvalidWindowRef, windowNoAppModalStateErr.
OSStatus QuitAppModalLoopForWindow(WindowRef window);
CARBON_FUNCTIONS_END

#endif
