// The nib reader: an archive, objects.xib, whose window "Window" is made, run and disposed of.

#include "fuzz/must_hold.h"
#include "fuzz/nothing_left.h"
#include "toolbox/core/dialogs/Window.h"
#include "toolbox/core/nibs/Nib.h"

#include <Carbon/Carbon.h>
#include <Toolbox/Displays.h>

#include <algorithm>
#include <limits>

namespace {

using Toolbox::Answer;
using Toolbox::Control;

OSStatus endLoop(EventHandlerCallRef, EventRef, void* window)
{
    return QuitAppModalLoopForWindow(static_cast<WindowRef>(window));
}

void endAtAnyCommand(WindowRef window)
{
    const EventTypeSpec commands[] = {{kEventClassCommand, kEventCommandProcess}};
    const EventHandlerUPP handler = NewEventHandlerUPP(endLoop);
    InstallEventHandler(GetWindowEventTarget(window), handler, 1, commands, window, nullptr);
    DisposeEventHandlerUPP(handler);
}

void checkControl(WindowRef window, const Control& control)
{
    ControlRef found = nullptr;
    mustHold(GetControlByID(window, &control.id, &found) == noErr, "a control is found by its id");
    for (const SInt32 wanted : {std::numeric_limits<SInt32>::min(), 0, 2, std::numeric_limits<SInt32>::max()}) {
        SetControl32BitValue(found, wanted);
        const SInt32 value = GetControl32BitValue(found);
        const Control* const changed = Control::find(found);
        const bool isWithin = value >= changed->minimum && value <= std::max(changed->minimum, changed->maximum);
        mustHold(isWithin, "a value stays within its control's range");
    }
}

void runWindow(WindowRef window)
{
    for (const Control* const control : Toolbox::Window::find(window)->controls())
        checkControl(window, *control);
    endAtAnyCommand(window);
    ShowWindow(window);
    Toolbox::UseUnattendedDisplay({{Answer::Kind::Item, 2}});
    RunAppModalLoopForWindow(window);
    DisposeWindow(window);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const CFStringRef name = CFSTR("Window");
    const NothingLeft check;
    const auto length = static_cast<qsizetype>(size);
    const IBNibRef nib = (new Toolbox::Nib(QStringLiteral("Fuzzed"),
                              QByteArray::fromRawData(reinterpret_cast<const char*>(data), length)))
                             ->ref();
    WindowRef window = nullptr;
    const OSStatus status = CreateWindowFromNib(nib, name, &window);
    DisposeNibReference(nib);
    mustHold((window != nullptr) == (status == noErr), "there is a window exactly if there is no error");
    if (window != nullptr)
        runWindow(window);
    return 0;
}
