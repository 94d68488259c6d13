#include "toolbox/core/displays/Screen.h"

#include "tests/toolbox/core/displays/Dialog.h"
#include "tests/toolbox/screen/Person.h"

#include <Toolbox/CInterface.h>

#include <QApplication>
#include <QDeadlineTimer>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <utility>

namespace {

// What the environment says about screens, and nothing else.
class Screen : public WindowTest {
protected:
    Screen() { nameNoScreen(); }

    ~Screen() override { EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a process is left"; }

    static void nameNoScreen()
    {
        for (const char* const variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY"})
            unsetenv(variable);
    }
};

// The variables that name it.
const std::vector<std::pair<const char*, const char*>> DEAD_SCREENS[] = {
    {},
    {{"QT_QPA_PLATFORM", ""}, {"DISPLAY", ""}},
    {{"QT_QPA_PLATFORM", "offscreen"}},
    {{"QT_QPA_PLATFORM", "offscreen:configfile=none"}},
    {{"QT_QPA_PLATFORM", "minimal"}},
    {{"QT_QPA_PLATFORM", "OFFSCREEN"}},
    {{"QT_QPA_PLATFORM", "nonsense"}},
    {{"QT_QPA_PLATFORM", "nonsense;Minimal"}},
    {{"QT_QPA_PLATFORM", "xcb"}},
    {{"DISPLAY", ":4711"}},
    {{"DISPLAY", "not a display"}},
    {{"DISPLAY", "host.invalid:0"}},
    {{"WAYLAND_DISPLAY", "wayland-4711"}},
};

TEST_F(Screen, DoesNotAnswerWhereTheOneThatIsNamedDoesNot)
{
    const auto nextDescriptor = [] {
        const int next = dup(STDIN_FILENO);
        close(next);
        return next;
    };
    const int nextBefore = nextDescriptor();
    for (const auto& variables : DEAD_SCREENS) {
        SCOPED_TRACE(testing::PrintToString(variables));
        for (const auto& [variable, value] : variables)
            setenv(variable, value, 1);
        testing::internal::CaptureStderr();
        EXPECT_FALSE(Toolbox::UseScreenDisplayIfAny());
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(nextDescriptor(), nextBefore) << "a file is left open";
        nameNoScreen();
    }
}

bool isBusy = false;

void computeWhenBusy()
{
    for (const QDeadlineTimer end(isBusy ? 2500 : 0); !end.hasExpired();) { }
}

Q_COREAPP_STARTUP_FUNCTION(computeWhenBusy)

TEST_F(Screen, AnswersThoughABusyMachineTakesLongToReachIt)
{
    isBusy = true;
    EXPECT_TRUE(Toolbox::platformAnswers("offscreen"));
    isBusy = false;
}

TEST_F(Screen, IsThatOfTheApplicationThatTheProcessHasIfItHasOne)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    {
        const QCoreApplication withoutScreen(count, arguments);
        EXPECT_FALSE(Toolbox::UseScreenDisplayIfAny());
    }
    const Person person({press(Qt::Key_Return)});
    const QApplication application(count, arguments);
    unsetenv("QT_QPA_PLATFORM");
    EXPECT_TRUE(Toolbox::UseScreenDisplayIfAny());
    EXPECT_TRUE(ToolboxAskTheUser());
    EXPECT_EQ(Dialog().run(), "ended: ok");
    EXPECT_EQ(QCoreApplication::instance(), &application);
}

TEST_F(Screen, ThatDoesNotAnswerLeavesTheDisplayAsItWas)
{
    const auto before = Toolbox::currentDisplay();
    std::string problem;
    EXPECT_FALSE(Toolbox::UseScreenDisplay(&problem));
    EXPECT_EQ(problem, "neither WAYLAND_DISPLAY nor DISPLAY names a screen");
    setenv("DISPLAY", ":54321", 1);
    EXPECT_FALSE(Toolbox::UseScreenDisplay(&problem));
    EXPECT_EQ(problem, "no screen answers at DISPLAY=:54321");
    unsetenv("DISPLAY");
    EXPECT_EQ(Toolbox::currentDisplay(), before);
}

}  // namespace
