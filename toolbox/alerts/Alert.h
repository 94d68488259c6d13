// An alert, whichever way it was asked for: what a display shows and what it can be answered with.

#ifndef TOOLBOX_ALERTS_ALERT_H
#define TOOLBOX_ALERTS_ALERT_H

#include <Carbon/Dialogs.h>

#include <QString>

#include <optional>
#include <vector>

namespace Toolbox {

/// A button of an alert, by the number that pressing it reports.
struct AlertButton {
    SInt16 number = 0;
    QString title;
    bool enabled = true;
    Rect bounds{};  // of an alert from resources, in the window's coordinates
};

/// A text of an alert from resources, in its place.
struct AlertText {
    QString text;
    Rect bounds{};
};

/// The place and size of an alert that was drawn from resources.
struct AlertLayout {
    SInt16 id = 0;
    Rect bounds{};
    std::vector<AlertText> texts;
};

/// Everything that a display needs to show an alert.
struct Alert {
    AlertType type = kAlertPlainAlert;  // which icon
    QString text;                       // of an alert from resources: its static texts, a line each
    QString explanation;                // smaller, below
    std::vector<AlertButton> buttons;   // in the order of their numbers
    SInt16 defaultButton = 0;           // the number of the one that Return presses; 0 none
    SInt16 cancelButton = 0;            // the number of the one that Escape presses; 0 none
    std::optional<AlertLayout> layout;  // of an alert from resources
};

/// Shows `alert` on the display that was chosen, notes it for ShownAlerts, and returns the number of the button
/// pressed.
SInt16 runAlert(const Alert& alert);

}  // namespace Toolbox

#endif
