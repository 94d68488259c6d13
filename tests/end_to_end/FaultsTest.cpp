// What goes wrong between two calls that the external makes of the real toolbox, and what a call that failed has left
// behind: nothing may touch that again.

#include "host/External.h"
#include "host/Installer.h"
#include "host/Record.h"
#include "tests/support/TemporaryFolder.h"

#include <Carbon/CarbonEvents.h>
#include <Toolbox/CallReport.h>
#include <Toolbox/Displays.h>
#include <Toolbox/Trace.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iterator>
#include <optional>
#include <regex>
#include <string>
#include <vector>

namespace {

using namespace Host;
using Toolbox::Answer;

namespace fs = std::filesystem;

const std::uint16_t UNTOUCHED = 0xBEEF;
const std::uint16_t GERMAN = 2;
const std::vector<Answer> CHOOSE_GERMAN = {{Answer::Kind::Item, 3}};

// An application of the test's own, whose nib it may spoil.
class Faults : public testing::Test {
protected:
    Faults()
        : app(folder / "Application.app")
        , nib(app / "Contents/Resources/LanguageSelector.nib")
    {
        fs::copy(DEMO_APPLICATION_FOLDER, app, fs::copy_options::recursive);
        installer.emplace(app, std::nullopt);
        external.emplace(installer->builtInExternal());
    }

    // The chosen language after one call, UNTOUCHED if none was.
    std::uint16_t call(const std::vector<Answer>& answers)
    {
        Toolbox::UseUnattendedDisplay(answers);
        Record record;
        record.block().message = 1000;
        record.block().chosenLanguage = UNTOUCHED;
        alerts = external->call(record, DisplayKind::Unattended, watch).toolbox.alerts;
        return record.block().chosenLanguage;
    }

    // Does `action` when the external's next call of `function` returns.
    void after(const std::string& function, const std::function<void()>& action)
    {
        watch = [function, action](const std::string& line) {
            if (line.rfind(function + "(", 0) == 0)
                action();
        };
    }

    // How often the external's handlers were called in one call of the main entry.
    int handlerCalls(const std::vector<Answer>& answers)
    {
        int calls = 0;
        after("GetEventClass", [&calls] { ++calls; });
        call(answers);
        watch = nullptr;
        return calls;
    }

    // Calls the external with a dialog that nothing can end.
    void failOnce()
    {
        const std::string file = (nib / "objects.xib").string();
        const std::string objects = contents(file);
        const std::regex command("(<ostype name=\"command\">)....");
        folder.write(file, std::regex_replace(objects, command, "$1none"));
        EXPECT_EQ(call({}), UNTOUCHED);
        ASSERT_EQ(alerts.size(), 1u);
        EXPECT_EQ(alerts[0].text, "Can't run modal loop for window");
        folder.write(file, objects);
    }

    TemporaryFolder folder;
    const fs::path app;
    const fs::path nib;
    std::optional<Installer> installer;
    std::optional<External> external;
    Toolbox::TraceSink watch;
    std::vector<Toolbox::ShownAlert> alerts;  // of the last call
};

TEST_F(Faults, LoadingTheExternalLeavesNoFileOpen)
{
    const auto openFiles = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    const auto before = openFiles();
    const External again(installer->builtInExternal());
    EXPECT_EQ(openFiles(), before);
}

TEST_F(Faults, ApplicationThatGoesWhenTheWindowIsMadeIsNoLongerNeeded)
{
    after("CreateWindowFromNib", [this] { fs::remove_all(app); });
    EXPECT_EQ(call(CHOOSE_GERMAN), GERMAN);
}

// The handler that is left has its state on a stack that is gone. The address sanitizer sees whoever looks there.
TEST_F(Faults, FailedModalLoopLeavesAHandlerThatNobodyCallsAgain)
{
    const int calls = handlerCalls(CHOOSE_GERMAN);
    EXPECT_GT(calls, 0);
    for (int times = 1; times <= 3; ++times) {
        failOnce();
        EXPECT_EQ(handlerCalls(CHOOSE_GERMAN), calls) << "after " << times << " failed calls";
        EXPECT_EQ(handlerCalls({{Answer::Kind::Command, kHICommandCancel}}), 1);
        EXPECT_EQ(call(CHOOSE_GERMAN), GERMAN);
    }
}

}  // namespace
