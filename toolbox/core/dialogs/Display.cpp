#include "toolbox/core/dialogs/Display.h"

#include "toolbox/core/displays/UnattendedDisplay.h"

#include <Toolbox/Displays.h>

#include <utility>

namespace Toolbox {

namespace {

struct Choice {
    std::shared_ptr<Display> display = std::make_shared<UnattendedDisplay>(std::vector<Answer>());
    QString problem;
};

Choice& choice()
{
    // Never destroyed: when the process ends, what a display still shows ends with it.
    static auto* const chosen = new Choice;
    return *chosen;
}

}  // namespace

std::shared_ptr<Display> currentDisplay()
{
    return choice().display;
}

void setCurrentDisplay(std::unique_ptr<Display> display)
{
    choice() = {std::move(display), QString()};
}

void noteDisplayProblem(const QString& problem)
{
    choice().problem = problem;
}

std::string DisplayProblem()
{
    return choice().problem.toStdString();
}

}  // namespace Toolbox
