// A window as a dialog on the screen.

#ifndef TOOLBOX_SCREEN_WINDOWDIALOG_H
#define TOOLBOX_SCREEN_WINDOWDIALOG_H

#include "toolbox/core/dialogs/Window.h"
#include "toolbox/screen/BoundsLayout.h"
#include "toolbox/screen/ScreenDialog.h"

#include <functional>
#include <vector>

namespace Toolbox {

class PopUpButton;

/// Shows the controls of a window at their places, and turns what somebody does there into presses, choices and the
/// cancel command. It closes when the window's modal loop has ended.
class WindowDialog : public ScreenDialog {
public:
    WindowDialog(Window& window, QWidget* parent);

    /// What Escape and the close box do: cancels the window.
    void reject() override;

private:
    // A control and what shows it.
    struct Shown {
        Control* control;
        QWidget* widget;
        PopUpButton* popUp;  // which may be a part of the widget; null for other controls
    };

    Shown makeWidget(Control& control, QWidget* parent);
    Shown makeButton(Control& control, QWidget* parent);
    Shown makePopUp(Control& control, QWidget* parent);
    void addControls();
    void focusFirst();
    void act(const std::function<void()>& action);
    void showStates();

    Window& m_window;
    const WindowRef m_ref;  // tells whether m_window is still there
    std::vector<Shown> m_shown;
};

}  // namespace Toolbox

#endif
