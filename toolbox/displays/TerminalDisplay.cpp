#include "toolbox/displays/TerminalDisplay.h"

#include "toolbox/displays/Picture.h"
#include "toolbox/displays/Terminal.h"
#include "toolbox/displays/TerminalAlert.h"
#include "toolbox/displays/TerminalWindow.h"

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
