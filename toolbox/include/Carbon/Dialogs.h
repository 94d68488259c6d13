// The Dialog Manager: standard alerts, and alerts drawn from the resources 'ALRT' and 'DITL'.

#ifndef CARBON_DIALOGS_H
#define CARBON_DIALOGS_H

#include <Carbon/MacTypes.h>
#include <CoreFoundation/CFBase.h>

CARBON_FUNCTIONS_BEGIN

struct EventRecord;

typedef struct OpaqueDialogPtr* DialogRef;
typedef SInt16 DialogItemIndex;  // from 1
typedef SInt16 AlertType;
typedef Boolean (*ModalFilterProcPtr)(DialogRef dialog, struct EventRecord* event, DialogItemIndex* itemHit);
typedef ModalFilterProcPtr ModalFilterUPP;

enum {
    kAlertStopAlert = 0,
    kAlertNoteAlert = 1,
    kAlertCautionAlert = 2,
    kAlertPlainAlert = 3,
};

// The system's own word for a button ("OK", "Cancel", "Don't Save"), cast to the type of the text.
enum {
    kAlertDefaultOKText = -1,
    kAlertDefaultCancelText = -1,
};

enum {
    kAlertStdAlertOKButton = 1,
    kAlertStdAlertCancelButton = 2,
    kAlertStdAlertOtherButton = 3,
    kAlertStdAlertHelpButton = 4,
};

enum {
    kWindowDefaultPosition = 0,
};

enum {
    kStdCFStringAlertVersionOne = 1,
};

CARBON_STRUCTURES_BEGIN
/// How StandardAlert looks: 24 bytes on the target. A null text means no such button. Neither `movable` nor `position`
/// changes anything: every alert can be moved, and is placed where the screen's window manager places dialogs.
typedef struct AlertStdAlertParamRec {
    Boolean movable;
    Boolean helpButton;
    ModalFilterUPP filterProc;
    ConstStringPtr defaultText;
    ConstStringPtr cancelText;
    ConstStringPtr otherText;
    SInt16 defaultButton;  // the slot of the one that Return presses; none for 0 and for a slot without a button
    SInt16 cancelButton;   // likewise of the one that Escape presses
    UInt16 position;
} AlertStdAlertParamRec;

/// How CreateStandardAlert's alert looks: 28 bytes on the target. The texts stay the caller's.
typedef struct AlertStdCFStringAlertParamRec {
    UInt32 version;
    Boolean movable;
    Boolean helpButton;
    CFStringRef defaultText;
    CFStringRef cancelText;
    CFStringRef otherText;
    SInt16 defaultButton;
    SInt16 cancelButton;
    UInt16 position;
    OptionBits flags;
} AlertStdCFStringAlertParamRec;
CARBON_STRUCTURES_END

/// Runs the alert of the resources 'ALRT' `id` and its 'DITL', found through the resource chain, with the stop icon.
/// Its stage is how often in a row this alert has occurred, up to four. Its sound is not played.
/// Return presses the stage's default item, Escape item 2, if they are buttons that can be pressed.
/// Returns the number of the button that was pressed; -1, with nothing shown, when the alert or its items are missing
/// or corrupt, when none of them is a button that can be pressed, or when the alert draws no box at its present stage.
/// The resources are released before it is shown. The filter is not called.
DialogItemIndex StopAlert(SInt16 id, ModalFilterUPP filter);

/// Runs a modal alert with texts in Mac OS Roman; the texts and the record may be null (no record: one OK button).
/// `*itemHit` is the slot of the button that was pressed, kAlertStdAlertOKButton and so on, whatever its title.
/// An unknown `type` has no icon. The filter is not called.
/// Returns noErr, for Cancel too; paramErr, with nothing shown, for a null `itemHit` and for a record without a button.
OSErr StandardAlert(AlertType type, ConstStr255Param error, ConstStr255Param explanation,
    const AlertStdAlertParamRec* parameters, SInt16* itemHit);

/// Makes an alert, not yet shown, that keeps its texts. `*alert` is then to be given to RunStandardAlert; it is null
/// after a failure. Null `parameters` mean one OK button.
/// Returns noErr; paramErr for a null `alert`, for a version other than kStdCFStringAlertVersionOne, for wrong texts
/// and for a record without a button.
OSStatus CreateStandardAlert(AlertType type, CFStringRef error, CFStringRef explanation,
    const AlertStdCFStringAlertParamRec* parameters, DialogRef* alert);

/// Shows the alert, runs it and disposes of it. `*itemHit` as for StandardAlert. The filter is not called.
/// Returns noErr; paramErr for a null `itemHit`, which leaves the alert as it is, or a wrong alert, such as one that
/// was run.
OSStatus RunStandardAlert(DialogRef alert, ModalFilterUPP filter, DialogItemIndex* itemHit);
CARBON_FUNCTIONS_END

#endif
