#include "toolbox/core/terminal/TerminalDisplay.h"

#include "toolbox/core/displays/Picture.h"
#include "toolbox/core/terminal/Terminal.h"
#include "toolbox/core/terminal/TerminalAlert.h"
#include "toolbox/core/terminal/TerminalWindow.h"

#include <Toolbox/Displays.h>

#include <memory>

namespace Toolbox {

bool TerminalDisplay::runWindow(Window& window, QString* problem)
{
    drawRequestedPicture(window);
    Terminal terminal;
    return TerminalWindow(terminal, window).run(problem);
}

SInt16 TerminalDisplay::runAlert(const Alert& alert)
{
    drawRequestedPicture(alert);
    Terminal terminal;
    return askAlert(terminal, alert);
}

bool TerminalAnswers()
{
    return Terminal().answers();
}

void UseTerminalDisplay()
{
    setCurrentDisplay(std::make_unique<TerminalDisplay>());
}

}  // namespace Toolbox
