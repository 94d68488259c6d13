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

SInt16 Alert::confirmingButton() const
{
    const auto first = std::find_if(buttons.begin(), buttons.end(), isEnabled);
    return offers(defaultButton) || first == buttons.end() ? defaultButton : first->number;
}

SInt16 Alert::closingButton() const
{
    return cancelButton == 0 && buttons.size() == 1 ? buttons.front().number : cancelButton;
}

SInt16 Alert::unansweredButton() const
{
    return cancelButton != 0 ? cancelButton : confirmingButton();
}

QString wordFor(AlertType type, const QString& otherwise)
{
    switch (type) {
    case kAlertStopAlert:
        return QStringLiteral("Stop");
    case kAlertNoteAlert:
        return QStringLiteral("Note");
    case kAlertCautionAlert:
        return QStringLiteral("Caution");
    default:
        return otherwise;
    }
}

SInt16 runAlert(const Alert& alert)
{
    ShownAlert shown;
    shown.kind = wordFor(alert.type, QStringLiteral("Plain")).toLower().toStdString();
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
