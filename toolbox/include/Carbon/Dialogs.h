// The Dialog Manager: standard alerts, and alerts drawn from the resources 'ALRT' and 'DITL'.

#ifndef CARBON_DIALOGS_H
#define CARBON_DIALOGS_H

#include <Carbon/MacTypes.h>
#include <CoreFoundation/CFBase.h>

extern "C" {

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
    kAlertDefaultOtherText = -1,
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
/// How StandardAlert looks: 24 bytes on the target. A null text means no such button.
struct AlertStdAlertParamRec {
    Boolean movable;
    Boolean helpButton;
    ModalFilterUPP filterProc;
    ConstStringPtr defaultText;
    ConstStringPtr cancelText;
    ConstStringPtr otherText;
    SInt16 defaultButton;  // the one that Return presses; 0 none
    SInt16 cancelButton;   // the one that Escape presses; 0 none
    UInt16 position;
};

/// How CreateStandardAlert's alert looks: 28 bytes on the target. The texts stay the caller's.
struct AlertStdCFStringAlertParamRec {
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
};
CARBON_STRUCTURES_END

/// Runs the alert of the resources 'ALRT' `id` and its 'DITL', found through the resource chain, with the stop icon.
/// Returns the number of the enabled item that was hit; -1 when an alert or its items are missing or corrupt, or when
/// the alert draws no box at its present stage. The filter is not called.
DialogItemIndex StopAlert(SInt16 id, ModalFilterUPP filter);

/// Runs a modal alert with texts in Mac OS Roman; the texts and the record may be null (no record: one OK button).
/// `*itemHit` is the slot of the button that was pressed, kAlertStdAlertOKButton and so on, whatever its title.
/// Returns noErr, for Cancel too; paramErr for a null `itemHit`.
OSErr StandardAlert(AlertType type, ConstStr255Param error, ConstStr255Param explanation,
    const AlertStdAlertParamRec* parameters, SInt16* itemHit);

/// Makes an alert, not yet shown, that keeps its texts. `*alert` is then to be given to RunStandardAlert; it is null
/// after a failure. Null `parameters` mean one OK button.
/// Returns noErr; paramErr for a null `alert`, for a version other than kStdCFStringAlertVersionOne and for wrong
/// texts.
OSStatus CreateStandardAlert(AlertType type, CFStringRef error, CFStringRef explanation,
    const AlertStdCFStringAlertParamRec* parameters, DialogRef* alert);

/// Shows the alert, runs it and disposes of it. `*itemHit` as for StandardAlert. The filter is not called.
/// Returns noErr; paramErr for a null `itemHit` or a wrong alert.
OSStatus RunStandardAlert(DialogRef alert, ModalFilterUPP filter, DialogItemIndex* itemHit);
}

#endif
