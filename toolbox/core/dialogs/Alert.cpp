#include "toolbox/core/dialogs/Alert.h"

#include "toolbox/base/CurrentReport.h"
#include "toolbox/core/dialogs/Display.h"

#include <algorithm>

namespace Toolbox {

namespace {

bool isEnabled(const AlertButton& button)
{
    return button.enabled;
}

const char* kindOf(const Alert& alert)
{
    switch (alert.type) {
    case kAlertStopAlert:
        return "stop";
    case kAlertNoteAlert:
        return "note";
    case kAlertCautionAlert:
        return "caution";
    default:
        return "plain";
    }
}

std::vector<std::string> titlesByNumber(const std::vector<AlertButton>& buttons)
{
    std::vector<std::string> titles;
    for (const AlertButton& each : buttons) {
        titles.resize(static_cast<std::size_t>(each.number));
        titles.back() = each.title.toStdString();
    }
    return titles;
}

}  // namespace

bool Alert::offers(SInt16 number) const
{
    return std::any_of(buttons.begin(), buttons.end(),
        [number](const AlertButton& each) { return each.number == number && each.enabled; });
}

bool Alert::canEnd() const
{
    return std::any_of(buttons.begin(), buttons.end(), isEnabled);
}

SInt16 Alert::unansweredButton() const
{
    if (cancelButton != 0)
        return cancelButton;
    if (defaultButton != 0)
        return defaultButton;
    const auto first = std::find_if(buttons.begin(), buttons.end(), isEnabled);
    return first == buttons.end() ? SInt16{0} : first->number;
}

SInt16 runAlert(const Alert& alert)
{
    ShownAlert shown;
    shown.kind = kindOf(alert);
    if (alert.layout)
        shown.id = alert.layout->id;
    shown.text = alert.text.toStdString();
    shown.explanation = alert.explanation.toStdString();
    shown.buttons = titlesByNumber(alert.buttons);
    shown.pressed = currentDisplay()->runAlert(alert);
    currentReport().alerts.push_back(shown);
    return shown.pressed;
}

}  // namespace Toolbox
