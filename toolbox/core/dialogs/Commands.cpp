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

void takeNextState(Control& control)
{
    if (!control.autoToggle)
        return;
    if (control.kind == ControlKind::CheckBox)
        control.setValue(control.value == 0 ? 1 : 0);
    else if (control.kind == ControlKind::RadioButton)
        control.setValue(1);
}

}  // namespace

void pressControl(Control& control)
{
    if (!control.usable())
        return;
    takeNextState(control);
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
    if (stillThere != nullptr && answer != noErr)
        stillThere->setValue(item);
}

void sendWindowCommand(Window& window, MenuCommand command)
{
    sendCommand(window, makeCommand(kHICommandFromWindow, command, window.ref()));
}

}  // namespace Toolbox
