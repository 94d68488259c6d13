// The display that asks on the process's terminal: one question after the other, in plain lines that a screen reader
// can read out, without colours or moves of the cursor.

#ifndef TOOLBOX_CORE_TERMINAL_TERMINALDISPLAY_H
#define TOOLBOX_CORE_TERMINAL_TERMINALDISPLAY_H

#include "toolbox/core/dialogs/Display.h"

namespace Toolbox {

class TerminalDisplay : public Display {
public:
    /// Shows the window's texts and numbers what can be chosen. Return confirms; a number or a name chooses; the end of
    /// input, or a terminal that closes, cancels.
    bool runWindow(Window& window, QString* problem) override;

    /// Shows the texts and numbers the buttons. Return takes the default button; the end of input, or a terminal that
    /// closes, the cancel button, else the default one.
    SInt16 runAlert(const Alert& alert) override;
};

}  // namespace Toolbox

#endif
