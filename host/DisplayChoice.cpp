#include "host/DisplayChoice.h"

#include "host/Messages.h"

#include <Toolbox/Displays.h>

#include <csignal>
#include <string>

namespace Host {

namespace {

DisplayKind displayHere()
{
    if (Toolbox::ScreenAnswers())
        return DisplayKind::Window;
    return Toolbox::TerminalAnswers() ? DisplayKind::Terminal : DisplayKind::Unattended;
}

DisplayKind displayFor(const Options& options)
{
    if (options.display)
        return *options.display;
    return options.answers.empty() ? displayHere() : DisplayKind::Unattended;
}

void useWindow()
{
    std::string reason;
    if (!Toolbox::UseScreenDisplay(&reason))
        throw Problem(ExitStatus::NotDone, "cannot open a window: " + reason);
}

void useTerminal()
{
    if (!Toolbox::TerminalAnswers())
        throw Problem(ExitStatus::NotDone, "cannot ask on the terminal: the process has none, or is in the background");
    // A terminal that goes away while it asks is noticed by what it answers, and then said.
    std::signal(SIGHUP, SIG_IGN);
    Toolbox::UseTerminalDisplay();
}

}  // namespace

DisplayKind chooseDisplay(const Options& options)
{
    const DisplayKind kind = displayFor(options);
    switch (kind) {
    case DisplayKind::Window:
        useWindow();
        break;
    case DisplayKind::Terminal:
        useTerminal();
        break;
    case DisplayKind::Unattended:
        Toolbox::UseUnattendedDisplay(stepsOf(options.answers));
        break;
    }
    return kind;
}

}  // namespace Host
