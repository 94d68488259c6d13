// An alert, whichever way it was asked for: what a display shows and what it can be answered with. Lines of its texts
// end in line feeds.

#ifndef TOOLBOX_CORE_DIALOGS_ALERT_H
#define TOOLBOX_CORE_DIALOGS_ALERT_H

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
    /// Whether button `number` can be pressed: it is there and enabled.
    bool offers(SInt16 number) const;

    /// Whether there is a button that can be pressed: without one, nothing would ever end the alert.
    bool canEnd() const;

    /// The number of the button that confirms: the default one, else the first that can be pressed.
    SInt16 confirmingButton() const;

    /// The number of the button that closing the alert presses: the cancel button, else the only one; 0 if it has
    /// others.
    SInt16 closingButton() const;

    /// The number of the button that is taken when nobody can answer: the cancel button, else the one that confirms.
    SInt16 unansweredButton() const;

    AlertType type = kAlertPlainAlert;  // which icon
    QString text;                       // of an alert from resources: its static texts, a line each
    QString explanation;                // smaller, below
    std::vector<AlertButton> buttons;   // in the order of their numbers
    SInt16 defaultButton = 0;           // the number of the one that Return presses, which can be pressed; 0 none
    SInt16 cancelButton = 0;            // likewise of the one that Escape presses
    std::optional<AlertLayout> layout;  // of an alert from resources
};

/// What the icon of `type` says: "Stop", "Note" or "Caution"; `otherwise` where there is none.
QString wordFor(AlertType type, const QString& otherwise);

/// Shows `alert`, which must be able to end, on the display that was chosen, reports it, and returns the number of
/// the button pressed.
SInt16 runAlert(const Alert& alert);

}  // namespace Toolbox

#endif
