#include "host/DisplayChoice.h"

#include "host/Messages.h"

#include <Toolbox/Displays.h>

#include <csignal>
#include <string>
#include <vector>

namespace Host {

namespace {

bool useTerminalIfAny()
{
    if (!Toolbox::TerminalAnswers())
        return false;
    // A terminal that goes away while it asks is noticed by what it answers, and then said.
    std::signal(SIGHUP, SIG_IGN);
    Toolbox::UseTerminalDisplay();
    return true;
}

void useAnswers(const std::vector<GivenAnswer>& given)
{
    std::vector<Toolbox::Answer> answers;
    for (const GivenAnswer& each : given)
        answers.push_back(each.meaning);
    Toolbox::UseUnattendedDisplay(answers);
}

void useDisplay(DisplayKind kind, const Options& options)
{
    std::string reason;
    if (kind == DisplayKind::Window && !Toolbox::UseScreenDisplay(&reason))
        throw Problem(ExitStatus::NotDone, "cannot open a window: " + reason);
    if (kind == DisplayKind::Terminal && !useTerminalIfAny())
        throw Problem(ExitStatus::NotDone, "cannot ask on the terminal: the process has none, or is in the background");
    if (kind == DisplayKind::Unattended)
        useAnswers(options.answers);
}

}  // namespace

DisplayKind chooseDisplay(const Options& options)
{
    const bool anyWillDo = !options.display && options.answers.empty();
    if (anyWillDo && Toolbox::UseScreenDisplayIfAny())
        return DisplayKind::Window;
    if (anyWillDo && useTerminalIfAny())
        return DisplayKind::Terminal;
    const DisplayKind kind = options.display.value_or(DisplayKind::Unattended);
    useDisplay(kind, options);
    return kind;
}

}  // namespace Host
