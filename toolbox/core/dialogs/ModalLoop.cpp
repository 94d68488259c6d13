#include "toolbox/core/dialogs/ModalLoop.h"

#include "toolbox/base/CurrentReport.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/core/dialogs/Display.h"

#include <Carbon/CarbonEvents.h>

#include <algorithm>
#include <vector>

namespace Toolbox {

namespace {

struct ModalLoop {
    WindowRef window;
    bool toldToEnd = false;
};

std::vector<ModalLoop> modalLoops;  // the innermost last

ModalLoop* findLoop(WindowRef window)
{
    const auto found = std::find_if(
        modalLoops.begin(), modalLoops.end(), [window](const ModalLoop& loop) { return loop.window == window; });
    return found == modalLoops.end() ? nullptr : &*found;
}

// The innermost loop, for as long as this lives.
class InnermostLoop {
public:
    explicit InnermostLoop(WindowRef window) { modalLoops.push_back({window}); }
    ~InnermostLoop() { modalLoops.pop_back(); }
    InnermostLoop(const InnermostLoop&) = delete;
    InnermostLoop& operator=(const InnermostLoop&) = delete;
};

OSStatus runModalLoop(WindowRef ref)
{
    Window* const window = Window::find(ref);
    if (window == nullptr)
        return errInvalidWindowRef;
    if (findLoop(ref) != nullptr)
        return windowAppModalStateAlreadyExistsErr;

    window->wasRun = window->wasRun || window->visible;
    const InnermostLoop loop(ref);
    currentReport().windowShown = currentReport().windowShown || window->visible;
    QString problem = QStringLiteral("the window is not shown");
    if (window->visible && currentDisplay()->runWindow(*window, &problem))
        return noErr;
    currentReport().displayProblem = problem.toStdString();
    return eventInternalErr;
}

OSStatus quitModalLoop(WindowRef ref)
{
    if (Window::find(ref) == nullptr)
        return errInvalidWindowRef;
    ModalLoop* const loop = findLoop(ref);
    if (loop == nullptr)
        return windowNoAppModalStateErr;
    loop->toldToEnd = true;
    return noErr;
}

}  // namespace

bool modalLoopEnded(WindowRef window)
{
    const ModalLoop* const loop = findLoop(window);
    return loop == nullptr || loop->toldToEnd || Window::find(window) == nullptr;
}

bool takesCommands(WindowRef window)
{
    return !modalLoopEnded(window) && modalLoops.back().window == window;
}

}  // namespace Toolbox

using namespace Toolbox;

OSStatus RunAppModalLoopForWindow(WindowRef window)
{
    TracedCall call("RunAppModalLoopForWindow", window);
    return call.gives(runModalLoop(window));
}

OSStatus QuitAppModalLoopForWindow(WindowRef window)
{
    TracedCall call("QuitAppModalLoopForWindow", window);
    return call.gives(quitModalLoop(window));
}
