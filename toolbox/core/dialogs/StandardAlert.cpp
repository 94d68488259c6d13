#include "toolbox/base/Referenced.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/core/core_foundation/StringObject.h"
#include "toolbox/core/dialogs/Alert.h"
#include "toolbox/core/dialogs/MacText.h"

#include <cstdint>
#include <memory>
#include <utility>

namespace Toolbox {

namespace {

// An alert between CreateStandardAlert and RunStandardAlert.
class WaitingAlert : public Referenced<WaitingAlert, DialogRef> {
public:
    static constexpr const char* KIND = "alert";

    explicit WaitingAlert(Alert itsAlert)
        : alert(std::move(itsAlert))
    {
    }

    const Alert alert;
};

QString shownText(ConstStringPtr text)
{
    return withLineFeeds(fromPascalString(text));
}

QString shownText(CFStringRef text)
{
    return withLineFeeds(textOf(text));
}

bool meansSystemWord(const void* title)
{
    return reinterpret_cast<std::intptr_t>(title) == kAlertDefaultOKText;
}

template <typename Text> void addButton(Alert& alert, SInt16 slot, Text title, const char* systemWord)
{
    if (title != nullptr)
        alert.buttons.push_back(
            {slot, meansSystemWord(title) ? QString::fromLatin1(systemWord) : shownText(title), true, {}});
}

template <typename Record> void addButtons(Alert& alert, const Record& parameters)
{
    addButton(alert, kAlertStdAlertOKButton, parameters.defaultText, "OK");
    addButton(alert, kAlertStdAlertCancelButton, parameters.cancelText, "Cancel");
    addButton(alert, kAlertStdAlertOtherButton, parameters.otherText, "Don't Save");
    if (parameters.helpButton)
        alert.buttons.push_back({kAlertStdAlertHelpButton, QStringLiteral("Help"), true, {}});
    alert.defaultButton = alert.offers(parameters.defaultButton) ? parameters.defaultButton : SInt16{0};
    alert.cancelButton = alert.offers(parameters.cancelButton) ? parameters.cancelButton : SInt16{0};
}

template <typename Text, typename Record>
Alert makeAlert(AlertType type, Text error, Text explanation, const Record* parameters)
{
    Alert alert;
    alert.type = type;
    alert.text = shownText(error);
    alert.explanation = shownText(explanation);
    if (parameters != nullptr) {
        addButtons(alert, *parameters);
    } else {
        alert.buttons.push_back({kAlertStdAlertOKButton, QStringLiteral("OK"), true, {}});
        alert.defaultButton = kAlertStdAlertOKButton;
    }
    return alert;
}

OSErr standardAlert(AlertType type, ConstStr255Param error, ConstStr255Param explanation,
    const AlertStdAlertParamRec* parameters, SInt16* itemHit)
{
    if (itemHit == nullptr)
        return paramErr;
    const Alert alert = makeAlert(type, error, explanation, parameters);
    if (!alert.canEnd())
        return paramErr;
    *itemHit = runAlert(alert);
    return noErr;
}

// Whether `text` is a reference to nothing; null is not.
bool isWrong(CFStringRef text)
{
    return text != nullptr && textOf(text).isNull();
}

bool isWrongTitle(CFStringRef title)
{
    return !meansSystemWord(title) && isWrong(title);
}

bool isWrong(const AlertStdCFStringAlertParamRec& parameters)
{
    return parameters.version != kStdCFStringAlertVersionOne || isWrongTitle(parameters.defaultText)
        || isWrongTitle(parameters.cancelText) || isWrongTitle(parameters.otherText);
}

OSStatus createStandardAlert(AlertType type, CFStringRef error, CFStringRef explanation,
    const AlertStdCFStringAlertParamRec* parameters, DialogRef* dialog)
{
    if (dialog == nullptr)
        return paramErr;
    *dialog = nullptr;
    if (isWrong(error) || isWrong(explanation) || (parameters != nullptr && isWrong(*parameters)))
        return paramErr;
    const Alert alert = makeAlert(type, error, explanation, parameters);
    if (!alert.canEnd())
        return paramErr;
    *dialog = (new WaitingAlert(alert))->ref();  // the caller's, until RunStandardAlert
    return noErr;
}

OSStatus runStandardAlert(DialogRef dialog, DialogItemIndex* itemHit)
{
    if (itemHit == nullptr)
        return paramErr;
    const std::unique_ptr<WaitingAlert> waiting(WaitingAlert::find(dialog));
    if (waiting == nullptr)
        return paramErr;
    *itemHit = runAlert(waiting->alert);
    return noErr;
}

// For the trace, which takes the bytes of a Pascal string for an address.
auto described(ConstStringPtr text)
{
    return [text] { return text == nullptr ? "null" : quoted(fromPascalString(text)); };
}

// The buttons that a record asks for, by their titles.
template <typename Record> auto described(const Record* parameters)
{
    return [parameters] {
        if (parameters == nullptr)
            return std::string("null");
        Alert alert;
        addButtons(alert, *parameters);
        std::string titles;
        for (const AlertButton& each : alert.buttons)
            titles += (titles.empty() ? "" : ", ") + quoted(each.title);
        return '{' + titles + '}';
    };
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

OSErr StandardAlert(AlertType type, ConstStr255Param error, ConstStr255Param explanation,
    const AlertStdAlertParamRec* parameters, SInt16* itemHit)
{
    TracedCall call("StandardAlert", type, described(error), described(explanation), described(parameters), itemHit);
    return call.gives(standardAlert(type, error, explanation, parameters, itemHit));
}

OSStatus CreateStandardAlert(AlertType type, CFStringRef error, CFStringRef explanation,
    const AlertStdCFStringAlertParamRec* parameters, DialogRef* alert)
{
    TracedCall call("CreateStandardAlert", type, error, explanation, described(parameters), alert);
    return call.gives(createStandardAlert(type, error, explanation, parameters, alert));
}

OSStatus RunStandardAlert(DialogRef alert, ModalFilterUPP filter, DialogItemIndex* itemHit)
{
    TracedCall call("RunStandardAlert", alert, filter, itemHit);
    return call.gives(runStandardAlert(alert, itemHit));
}
