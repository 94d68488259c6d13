#include "toolbox/core/dialogs/WindowButtons.h"

#include "toolbox/core/dialogs/Commands.h"

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
    return window.firstControl([](const Control& each) { return each.command == kHICommandOK && each.usable(); });
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
