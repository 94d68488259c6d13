// Every public function of windows, controls, events and nibs: its name and arguments in the trace, and its answer to
// nulls.

#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <Carbon/IBCarbonRuntime.h>
#include <Toolbox/Trace.h>

namespace {

struct NullCase {
    const char* name;
    void (*call)();
    const char* line;
};

// clang-format off
const NullCase NULL_CASES[] = {
    {"ShowWindow",            [] { ShowWindow(nullptr); },    "ShowWindow(null)"},
    {"HideWindow",            [] { HideWindow(nullptr); },    "HideWindow(null)"},
    {"DisposeWindow",         [] { DisposeWindow(nullptr); }, "DisposeWindow(null)"},
    {"GetControlByID",        [] { GetControlByID(nullptr, nullptr, nullptr); },
                              "GetControlByID(null, null, null) = -50"},
    {"GetControl32BitValue",  [] { GetControl32BitValue(nullptr); },    "GetControl32BitValue(null) = 0"},
    {"SetControl32BitValue",  [] { SetControl32BitValue(nullptr, 5); }, "SetControl32BitValue(null, 5)"},
    {"GetWindowEventTarget",  [] { GetWindowEventTarget(nullptr); },    "GetWindowEventTarget(null) = null"},
    {"NewEventHandlerUPP",    [] { NewEventHandlerUPP(nullptr); },      "NewEventHandlerUPP(null) = null"},
    {"DisposeEventHandlerUPP", [] { DisposeEventHandlerUPP(nullptr); }, "DisposeEventHandlerUPP(null)"},
    {"InstallEventHandler",   [] { InstallEventHandler(nullptr, nullptr, 1, nullptr, nullptr, nullptr); },
                              "InstallEventHandler(null, null, 1, null, null, null) = -50"},
    {"GetEventClass",         [] { GetEventClass(nullptr); }, "GetEventClass(null) = 0"},
    {"GetEventKind",          [] { GetEventKind(nullptr); },  "GetEventKind(null) = 0"},
    {"GetEventParameter",     [] { GetEventParameter(nullptr, '----', 'hcmd', nullptr, 14, nullptr, nullptr); },
                              "GetEventParameter(null, '----', 'hcmd', null, 14, null, null) = -50"},
    {"RunAppModalLoopForWindow",  [] { RunAppModalLoopForWindow(nullptr); },  "RunAppModalLoopForWindow(null) = -5600"},
    {"QuitAppModalLoopForWindow", [] { QuitAppModalLoopForWindow(nullptr); }, "QuitAppModalLoopForWindow(null) = -5600"},
    {"CreateNibReference",    [] { CreateNibReference(nullptr, nullptr); }, "CreateNibReference(null, null) = -50"},
    {"CreateWindowFromNib",   [] { CreateWindowFromNib(nullptr, nullptr, nullptr); },
                              "CreateWindowFromNib(null, null, null) = -50"},
    {"DisposeNibReference",   [] { DisposeNibReference(nullptr); }, "DisposeNibReference(null)"},
};
// clang-format on

class PublicFunction : public WindowTest, public testing::WithParamInterface<NullCase> { };

TEST_P(PublicFunction, IsTracedAndAnswersNulls)
{
    std::vector<std::string> lines;
    Toolbox::SetTrace([&lines](const std::string& line) { lines.push_back(line); });
    GetParam().call();
    Toolbox::SetTrace(nullptr);
    EXPECT_EQ(lines, std::vector<std::string>{GetParam().line});
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PublicFunction, testing::ValuesIn(NULL_CASES), [](const auto& row) { return row.param.name; });

}  // namespace
