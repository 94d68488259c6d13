// Every public function of windows, controls, events and nibs: its name and arguments in the trace, and its answer to
// nulls.

#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <Carbon/IBCarbonRuntime.h>
#include <Toolbox/Trace.h>

#include <utility>

namespace {

class PublicFunctions : public WindowTest { };

TEST_F(PublicFunctions, AreTracedAndAnswerNulls)
{
    const std::pair<void (*)(), const char*> rows[] = {
        {[] { ShowWindow(nullptr); }, "ShowWindow(null)"},
        {[] { HideWindow(nullptr); }, "HideWindow(null)"},
        {[] { DisposeWindow(nullptr); }, "DisposeWindow(null)"},
        {[] { GetControlByID(nullptr, nullptr, nullptr); }, "GetControlByID(null, null, null) = -50"},
        {[] { GetControl32BitValue(nullptr); }, "GetControl32BitValue(null) = 0"},
        {[] { SetControl32BitValue(nullptr, 5); }, "SetControl32BitValue(null, 5)"},
        {[] { GetWindowEventTarget(nullptr); }, "GetWindowEventTarget(null) = null"},
        {[] { NewEventHandlerUPP(nullptr); }, "NewEventHandlerUPP(null) = null"},
        {[] { DisposeEventHandlerUPP(nullptr); }, "DisposeEventHandlerUPP(null)"},
        {[] { InstallEventHandler(nullptr, nullptr, 1, nullptr, nullptr, nullptr); },
            "InstallEventHandler(null, null, 1, null, null, null) = -50"},
        {[] { GetEventClass(nullptr); }, "GetEventClass(null) = 0"},
        {[] { GetEventKind(nullptr); }, "GetEventKind(null) = 0"},
        {[] { GetEventParameter(nullptr, '----', 'hcmd', nullptr, 14, nullptr, nullptr); },
            "GetEventParameter(null, '----', 'hcmd', null, 14, null, null) = -50"},
        {[] { RunAppModalLoopForWindow(nullptr); }, "RunAppModalLoopForWindow(null) = -5600"},
        {[] { QuitAppModalLoopForWindow(nullptr); }, "QuitAppModalLoopForWindow(null) = -5600"},
        {[] { CreateNibReference(nullptr, nullptr); }, "CreateNibReference(null, null) = -50"},
        {[] { CreateWindowFromNib(nullptr, nullptr, nullptr); }, "CreateWindowFromNib(null, null, null) = -50"},
        {[] { DisposeNibReference(nullptr); }, "DisposeNibReference(null)"},
    };
    std::string traced;
    Toolbox::SetTrace([&traced](const std::string& line) { traced += line; });
    for (const auto& [call, line] : rows) {
        traced.clear();
        call();
        EXPECT_EQ(traced, line);
    }
    Toolbox::SetTrace(nullptr);
}

}  // namespace
