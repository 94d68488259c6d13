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
#include <tuple>

namespace {

// What the environment says about screens, and nothing else.
class Screen : public WindowTest {
protected:
    Screen()
    {
        for (const char* const variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY"})
            unsetenv(variable);
    }

    ~Screen() override { EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a process is left"; }
};

const std::tuple<const char*, const char*, const char*, const char*, bool> NAMED_CASES[] = {
    {"Nothing", nullptr, nullptr, nullptr, false},
    {"EmptyNames", "", "", "", false},
    {"Offscreen", "offscreen", nullptr, nullptr, false},
    {"OffscreenOfASize", "offscreen:configfile=none", nullptr, nullptr, false},
    {"Minimal", "minimal", nullptr, nullptr, false},
    {"NamedInCapitals", "OFFSCREEN", nullptr, nullptr, false},
    {"PlatformThatIsNotThere", "nonsense", nullptr, nullptr, false},
    {"TheSecondOfTwoPlatforms", "nonsense;Minimal", nullptr, nullptr, false},
    {"XWithoutADisplay", "xcb", nullptr, nullptr, false},
    {"DeadDisplay", nullptr, ":4711", nullptr, false},
    {"MalformedDisplay", nullptr, "not a display", nullptr, false},
    {"DisplayOfAHostThatIsNotThere", nullptr, "host.invalid:0", nullptr, false},
    {"DeadWaylandDisplay", nullptr, nullptr, "wayland-4711", false},
};

TEST_F(Screen, AnswersIfTheOneThatIsNamedDoes)
{
    const auto set = [](const char* variable, const char* value) {
        if (value == nullptr)
            unsetenv(variable);
        else
            setenv(variable, value, 1);
    };
    const auto nextDescriptor = [] {
        const int next = dup(STDIN_FILENO);
        close(next);
        return next;
    };
    const int nextBefore = nextDescriptor();
    for (const auto& [name, platform, display, wayland, expected] : NAMED_CASES) {
        set("QT_QPA_PLATFORM", platform);
        set("DISPLAY", display);
        set("WAYLAND_DISPLAY", wayland);
        testing::internal::CaptureStderr();
        const bool answers = Toolbox::ScreenAnswers();
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << name;
        EXPECT_EQ(answers, expected) << name;
        EXPECT_EQ(nextDescriptor(), nextBefore) << name << " leaves a file open";
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
