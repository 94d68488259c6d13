// The display that shows nothing and asks nobody: it takes what it is to do from a list of answers.

#ifndef TOOLBOX_CORE_DISPLAYS_UNATTENDEDDISPLAY_H
#define TOOLBOX_CORE_DISPLAYS_UNATTENDEDDISPLAY_H

#include "toolbox/core/dialogs/Display.h"

#include <Toolbox/Displays.h>

#include <deque>
#include <vector>

namespace Toolbox {

class UnattendedDisplay : public Display {
public:
    /// Takes `answers` in order; what is shown when none is left is confirmed as it stands.
    explicit UnattendedDisplay(const std::vector<Answer>& answers);

    bool runWindow(Window& window, QString* problem) override;
    SInt16 runAlert(const Alert& alert) override;

private:
    Answer takeAnswer();

    std::deque<Answer> m_answers;
};

}  // namespace Toolbox

#endif
