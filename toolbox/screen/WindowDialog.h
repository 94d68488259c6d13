// A window as a dialog on the screen.

#ifndef TOOLBOX_SCREEN_WINDOWDIALOG_H
#define TOOLBOX_SCREEN_WINDOWDIALOG_H

#include "toolbox/core/dialogs/Window.h"
#include "toolbox/screen/ControlWidgets.h"

#include <QDialog>

#include <functional>
#include <vector>

namespace Toolbox {

/// Shows the controls of a window at their places, and turns what somebody does there into presses, choices and the
/// cancel command. It closes when the window's modal loop has ended.
class WindowDialog : public QDialog {
public:
    WindowDialog(Window& window, QWidget* parent);

    /// What Escape does: cancels the window.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addControls();
    void relateLabels();
    void focusFirstControl();
    void act(const std::function<void()>& action);

    Window& m_window;
    const WindowRef m_ref;  // tells whether m_window is still there
    std::vector<ControlWidget> m_widgets;
};

}  // namespace Toolbox

#endif
