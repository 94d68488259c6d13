// The Dialog Manager's alerts. The person presses the button that the test has named.

#include <Carbon/Carbon.h>

#include "tests/double/Call.h"
#include "tests/double/State.h"

using namespace ToolboxDouble;

namespace {

struct Alert : Object { };

template <typename Record> std::string describeButtons(const Record& parameters)
{
    return "default button " + std::to_string(parameters.defaultButton) + ", cancel button "
        + std::to_string(parameters.cancelButton) + ", position " + std::to_string(parameters.position);
}

std::string describeRecord(const AlertStdAlertParamRec& parameters)
{
    return "{movable " + std::to_string(parameters.movable) + ", help " + std::to_string(parameters.helpButton)
        + ", filter " + given(parameters.filterProc != nullptr) + ", default " + quoted(parameters.defaultText)
        + ", cancel " + quoted(parameters.cancelText) + ", other " + quoted(parameters.otherText) + ", "
        + describeButtons(parameters) + '}';
}

std::string describeRecord(const AlertStdCFStringAlertParamRec& parameters)
{
    return "{version " + std::to_string(parameters.version) + ", movable " + std::to_string(parameters.movable)
        + ", help " + std::to_string(parameters.helpButton) + ", default " + nameOf(parameters.defaultText)
        + ", cancel " + nameOf(parameters.cancelText) + ", other " + nameOf(parameters.otherText) + ", "
        + describeButtons(parameters) + ", flags " + std::to_string(parameters.flags) + '}';
}

}  // namespace

DialogItemIndex StopAlert(SInt16 id, ModalFilterUPP filter)
{
    Call call("StopAlert");
    call.takes(id, given(filter != nullptr));
    if (call.fails())
        return call.returns(static_cast<DialogItemIndex>(call.failure()));
    return call.returns(state().pressedButton);
}

OSErr StandardAlert(AlertType type, ConstStr255Param error, ConstStr255Param explanation,
    const AlertStdAlertParamRec* parameters, SInt16* itemHit)
{
    Call call("StandardAlert");
    call.takes(type, quoted(error), quoted(explanation), describeRecord(*parameters));
    if (call.fails())
        return static_cast<OSErr>(call.returnsStatus(call.failure()));
    *itemHit = state().pressedButton;
    call.returnsStatus(noErr);
    call.gives(*itemHit);
    return noErr;
}

OSStatus CreateStandardAlert(AlertType type, CFStringRef error, CFStringRef explanation,
    const AlertStdCFStringAlertParamRec* parameters, DialogRef* alert)
{
    Call call("CreateStandardAlert");
    call.takes(type, error, explanation, describeRecord(*parameters));
    if (call.fails()) {
        *alert = wrongReference<DialogRef>();
        return call.returnsStatus(call.failure());
    }
    *alert = referenceTo<DialogRef>(add(std::make_unique<Alert>(), numbered("alert")));
    call.returnsStatus(noErr);
    call.gives(*alert);
    return noErr;
}

OSStatus RunStandardAlert(DialogRef alert, ModalFilterUPP filter, DialogItemIndex* itemHit)
{
    Call call("RunStandardAlert");
    call.takes(alert, given(filter != nullptr));
    Alert* const found = find<Alert>(alert);
    if (found != nullptr)
        found->alive = false;
    if (call.fails())
        return call.returnsStatus(call.failure());
    *itemHit = state().pressedButton;
    call.returnsStatus(noErr);
    call.gives(*itemHit);
    return noErr;
}
