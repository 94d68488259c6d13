#include "UI/MessageBox.h"

#include "util/CFString.h"

#include <Carbon/Carbon.h>

#include <cstdint>

namespace {

// One less than a Pascal string can hold.
const unsigned LONGEST_TEXT = 254;

const unsigned char YES_TEXT[] = "\3Yes";
const unsigned char NO_TEXT[] = "\2No";

// The Dialog Manager takes -1 in place of a button's text for the system's own word.
ConstStringPtr systemText(std::intptr_t which)
{
    return reinterpret_cast<ConstStringPtr>(which);
}

// Shows `text` in a note alert with one or two buttons; `yesNo` titles them Yes and No. Whether the first was pressed.
bool StandardAlertDialog(const String& text, bool hasCancel, bool yesNo, bool focusFirst)
{
    if (yesNo)
        hasCancel = true;

    AlertStdAlertParamRec parameters;
    parameters.movable = true;
    parameters.helpButton = false;
    parameters.filterProc = nullptr;
    parameters.defaultText = systemText(kAlertDefaultOKText);
    parameters.cancelText = hasCancel ? systemText(kAlertDefaultCancelText) : nullptr;
    parameters.otherText = nullptr;
    parameters.defaultButton = focusFirst ? kAlertStdAlertOKButton : kAlertStdAlertCancelButton;
    parameters.cancelButton = hasCancel ? kAlertStdAlertCancelButton : 0;
    parameters.position = kWindowDefaultPosition;
    if (yesNo) {
        parameters.defaultText = YES_TEXT;
        parameters.cancelText = NO_TEXT;
    }

    String shown(text);
    shown.Truncate(LONGEST_TEXT);
    const Util::CFString cfText(shown.Latin1(), Util::CFString::Release);

    // Overrides the focus, on purpose: Return presses the first button in every box, whatever the caller asked for.
    parameters.defaultButton = kAlertStdAlertOKButton;

    SInt16 itemHit = 0;
    StandardAlert(kAlertNoteAlert, CFStringGetPascalStringPtr(cfText.Get(), kCFStringEncodingMacRoman), nullptr,
        &parameters, &itemHit);
    return itemHit == kAlertStdAlertOKButton;
}

}  // namespace

namespace UI {

void MessageOK(OpaqueWindowPtr*, const String&, const String& message, bool)
{
    StandardAlertDialog(message, false, false, true);
}

bool MessageYesNo(OpaqueWindowPtr*, const String&, const String& message, YesNoFocus focus, bool)
{
    return StandardAlertDialog(message, true, true, focus == 0);
}

bool MessageOKCancel(OpaqueWindowPtr*, const String&, const String& message, OKCancelFocus focus, bool)
{
    return StandardAlertDialog(message, true, false, focus == 0);
}

void MessageOK(OpaqueWindowPtr*, const std::vector<unsigned short>&, const std::vector<unsigned short>& message,
    const std::vector<unsigned short>& buttonText, bool)
{
    const Util::CFString cfButton(buttonText.data(), static_cast<unsigned>(buttonText.size()), Util::CFString::Release);
    const Util::CFString cfMessage(message.data(), static_cast<unsigned>(message.size()), Util::CFString::Release);

    AlertStdCFStringAlertParamRec parameters;
    parameters.version = kStdCFStringAlertVersionOne;
    parameters.movable = true;
    parameters.helpButton = false;
    parameters.defaultText = cfButton.Get();
    parameters.cancelText = nullptr;
    parameters.otherText = nullptr;
    parameters.defaultButton = kAlertStdAlertOKButton;
    parameters.cancelButton = 0;
    parameters.position = kWindowDefaultPosition;
    parameters.flags = 0;

    DialogRef alert = nullptr;
    if (CreateStandardAlert(kAlertNoteAlert, cfMessage.Get(), nullptr, &parameters, &alert) != noErr)
        return;

    DialogItemIndex itemHit = 0;
    RunStandardAlert(alert, nullptr, &itemHit);
}

}  // namespace UI
