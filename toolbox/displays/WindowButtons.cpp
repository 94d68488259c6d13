#include "toolbox/displays/WindowButtons.h"

#include "toolbox/events/Commands.h"

#include <algorithm>

namespace Toolbox {

namespace {

Control* usableButton(const Window& window, ButtonRole role)
{
    Control* const button = window.buttonOfRole(role);
    return button != nullptr && button->usable() ? button : nullptr;
}

}  // namespace

Control* confirmingControl(const Window& window)
{
    Control* const button = usableButton(window, ButtonRole::Default);
    if (button != nullptr)
        return button;
    const std::vector<Control*> all = window.controls();
    const auto found = std::find_if(
        all.begin(), all.end(), [](const Control* each) { return each->command == kHICommandOK && each->usable(); });
    return found == all.end() ? nullptr : *found;
}

Control* cancellingControl(const Window& window)
{
    return usableButton(window, ButtonRole::Cancel);
}

void cancelWindow(Window& window)
{
    Control* const button = cancellingControl(window);
    if (button != nullptr)
        pressControl(*button);
    else
        sendWindowCommand(window, kHICommandCancel);
}

}  // namespace Toolbox
