// The Dialog Manager's alerts. The person presses the button that the test has named.

#include "tests/double/Call.h"
#include "tests/double/State.h"

#include <Carbon/Carbon.h>

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
        + ", filter " + describe(Given{parameters.filterProc != nullptr}) + ", default "
        + quoted(parameters.defaultText) + ", cancel " + quoted(parameters.cancelText) + ", other "
        + quoted(parameters.otherText) + ", " + describeButtons(parameters) + '}';
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
    Call call("StopAlert", id, Given{filter != nullptr});
    if (state().whenAlerted)
        state().whenAlerted();
    return call.returns(call.fails() ? static_cast<DialogItemIndex>(call.failure()) : state().pressedButton);
}

OSErr StandardAlert(AlertType type, ConstStr255Param error, ConstStr255Param explanation,
    const AlertStdAlertParamRec* parameters, SInt16* itemHit)
{
    Call call(
        "StandardAlert", type, [&] { return quoted(error); }, [&] { return quoted(explanation); },
        [&] { return describeRecord(*parameters); });
    if (state().pressedButton != 0)
        *itemHit = state().pressedButton;
    return static_cast<OSErr>(call.fails() ? call.returnsStatus(noErr) : call.succeeds(*itemHit));
}

OSStatus CreateStandardAlert(AlertType type, CFStringRef error, CFStringRef explanation,
    const AlertStdCFStringAlertParamRec* parameters, DialogRef* alert)
{
    Call call("CreateStandardAlert", type, error, explanation, [&] { return describeRecord(*parameters); });
    return create<Alert>(call, "alert", alert);
}

OSStatus RunStandardAlert(DialogRef alert, ModalFilterUPP filter, DialogItemIndex* itemHit)
{
    Call call("RunStandardAlert", alert, Given{filter != nullptr});
    the<Alert>(alert).end();  // whether it could be run or not
    if (call.fails())
        return call.returnsStatus(noErr);
    *itemHit = state().pressedButton;
    return call.succeeds(*itemHit);
}
