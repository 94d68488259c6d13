// A window as questions on a terminal.

#ifndef TOOLBOX_CORE_TERMINAL_TERMINALWINDOW_H
#define TOOLBOX_CORE_TERMINAL_TERMINALWINDOW_H

#include "toolbox/core/dialogs/Window.h"
#include "toolbox/core/terminal/Terminal.h"

#include <optional>
#include <vector>

namespace Toolbox {

/// One run of a window: what is typed becomes presses and choices, until the window's modal loop has ended.
class TerminalWindow {
public:
    // One thing that somebody can do in the window. Handlers may dispose of controls, so offers are made anew for
    // each answer.
    struct Offer {
        Control* control = nullptr;  // null for cancelling a window without a cancel button
        SInt32 item = 0;             // of a pop-up
        QString name = QString();
        QString title = QString();  // of an item, of which the name is what can be read here
        std::optional<int> number = std::nullopt;
        QString word = QString();  // stands for it beside its name: "ok", "cancel"
    };

    TerminalWindow(Terminal& terminal, Window& window);

    /// True when the modal loop has ended; false, with the reason in `*problem`, when the terminal gives no more input
    /// and cancelling the window does not end it.
    bool run(QString* problem);

private:
    std::vector<Offer> offers() const;
    void appendOffers(Control& control, std::vector<Offer>& all) const;
    QString question() const;
    void describe();
    void describeTitle(const Control& control);
    void answer(const QString& typed);
    void take(const Offer& offer);

    Terminal& m_terminal;
    Window& m_window;
    const WindowRef m_ref;  // tells whether m_window is still there
};

}  // namespace Toolbox

#endif
