#include "toolbox/core/dialogs/Display.h"

#include <utility>

namespace Toolbox {

namespace {

std::shared_ptr<Display>& chosenDisplay()
{
    // Never destroyed: when the process ends, what a display still shows ends with it.
    static auto* const chosen = new std::shared_ptr<Display>(makeFirstDisplay());
    return *chosen;
}

}  // namespace

std::shared_ptr<Display> currentDisplay()
{
    return chosenDisplay();
}

void setCurrentDisplay(std::unique_ptr<Display> display)
{
    chosenDisplay() = std::move(display);
}

}  // namespace Toolbox
