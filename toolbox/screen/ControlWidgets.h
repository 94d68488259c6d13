// The widgets that show the controls of a window, one for each.

#ifndef TOOLBOX_SCREEN_CONTROLWIDGETS_H
#define TOOLBOX_SCREEN_CONTROLWIDGETS_H

#include "toolbox/core/dialogs/Window.h"

#include <QWidget>

#include <functional>

namespace Toolbox {

/// A control and what shows it.
struct ControlWidget {
    Control* control;
    QWidget* widget;                  // owned by its parent; null for a kind that is not drawn
    QWidget* input;                   // what of it has the focus when somebody works it; null for what nobody can work
    std::function<void()> showState;  // brings the widget to the control's present state
};

/// What is done when somebody works a control. The control may be gone afterwards.
struct ControlActions {
    std::function<void(Control&)> press;
    std::function<void(Control&, SInt32 item)> choose;
};

/// Makes the widget of `control` inside `parent`, without a place yet.
ControlWidget makeControlWidget(Control& control, QWidget* parent, const ControlActions& actions);

}  // namespace Toolbox

#endif
