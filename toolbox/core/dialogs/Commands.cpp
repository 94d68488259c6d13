#include "toolbox/core/dialogs/Commands.h"

#include "toolbox/core/dialogs/ModalLoop.h"

#include <cstring>

namespace Toolbox {

namespace {

OSStatus sendCommand(const Window& window, const HICommand& command)
{
    if (!takesCommands(window.ref()))
        return eventNotHandledErr;
    EventParameter parameter{kEventParamDirectObject, typeHICommand, std::vector<UInt8>(sizeof command)};
    std::memcpy(parameter.bytes.data(), &command, sizeof command);
    return sendEvent(Event(kEventClassCommand, kEventCommandProcess, {parameter}), window.target);
}

// `source` is the control, window or menu that `attributes` speaks of: on the platform all three share one place.
HICommand makeCommand(UInt32 attributes, MenuCommand commandID, void* source, SInt32 item = 0)
{
    HICommand command{};
    command.attributes = attributes;
    command.commandID = commandID;
    command.menu.menuRef = static_cast<MenuRef>(source);
    command.menu.menuItemIndex = static_cast<MenuItemIndex>(item);
    return command;
}

Control* usableButton(const Window& window, ButtonRole role)
{
    Control* const button = window.buttonOfRole(role);
    return button != nullptr && button->usable() ? button : nullptr;
}

}  // namespace

void pressControl(Control& control)
{
    if (!control.usable())
        return;
    if (control.command != 0)
        sendCommand(control.window, makeCommand(kHICommandFromControl, control.command, control.ref()));
}

void chooseMenuItem(Control& popUp, SInt32 item)
{
    if (!popUp.usable() || !popUp.offers(item))
        return;
    const ControlRef ref = popUp.ref();
    const MenuCommand command = popUp.items[static_cast<std::size_t>(item) - 1].command;
    // Menus have no references of their own: a pop-up's stands for its menu.
    const OSStatus answer = sendCommand(popUp.window, makeCommand(kHICommandFromMenu, command, ref, item));
    Control* const stillThere = Control::find(ref);
    if (stillThere == nullptr || answer == noErr)
        return;
    stillThere->setValue(item);
    pressControl(*stillThere);
}

void sendWindowCommand(Window& window, MenuCommand command)
{
    sendCommand(window, makeCommand(kHICommandFromWindow, command, window.ref()));
}

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
