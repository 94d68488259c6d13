#include "tests/toolbox/core/displays/Dialog.h"
#include "tests/toolbox/screen/Person.h"

#include <Toolbox/CInterface.h>

#include <QApplication>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
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
        EXPECT_FALSE(Toolbox::ScreenAnswers());
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(nextDescriptor(), nextBefore) << "a file is left open";
        nameNoScreen();
    }
}

TEST_F(Screen, ThatHangsDoesNotAnswerAndIsNotWaitedForLong)
{
    // A port on which somebody listens, but never says anything: what is behind a display's number from 6000 on.
    const int silent = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    ASSERT_EQ(bind(silent, reinterpret_cast<const sockaddr*>(&address), length), 0);
    ASSERT_EQ(listen(silent, 1), 0);
    ASSERT_EQ(getsockname(silent, reinterpret_cast<sockaddr*>(&address), &length), 0);
    ASSERT_GE(ntohs(address.sin_port), 6000);
    setenv("DISPLAY", ("127.0.0.1:" + std::to_string(ntohs(address.sin_port) - 6000)).c_str(), 1);

    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(Toolbox::ScreenAnswers());
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(1900)) << "it was not the silence that was waited for";
    EXPECT_LT(waited, std::chrono::seconds(10));
    close(silent);
}

TEST_F(Screen, IsNotThereForAProcessWithAnApplicationWithoutOne)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    EXPECT_FALSE(Toolbox::ScreenAnswers());
}

TEST_F(Screen, IsThatOfTheApplicationThatTheProcessHas)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const Person person({press(Qt::Key_Return)});
    const QApplication application(count, arguments);
    unsetenv("QT_QPA_PLATFORM");
    EXPECT_TRUE(Toolbox::ScreenAnswers());
    EXPECT_TRUE(ToolboxAskTheUser());
    std::string problem;
    ASSERT_TRUE(Toolbox::UseScreenDisplay(&problem)) << problem;
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
