#include "tests/support/TemporaryFolder.h"
#include "tests/toolbox/core/displays/Dialog.h"
#include "tests/toolbox/screen/Person.h"

#include <Toolbox/CInterface.h>

#include <QApplication>
#include <QImage>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
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
    {"PlatformThatIsNotThere", "nonsense", nullptr, nullptr, false},
    {"TheSecondOfTwoPlatforms", "nonsense;offscreen", nullptr, nullptr, true},
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

// ---- A real X server

/// Xvfb, for as long as this lives.
class XServer {
public:
    explicit XServer(const std::vector<std::string>& options = {})
    {
        int answer[2];
        EXPECT_EQ(pipe(answer), 0);
        m_process = fork();
        if (m_process == 0)
            become(options, answer[1]);
        close(answer[1]);
        m_display = readLine(answer[0]);
        close(answer[0]);
    }

    ~XServer()
    {
        kill(m_process, SIGTERM);
        waitpid(m_process, nullptr, 0);
    }

    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    /// Whether Xvfb is installed and has started.
    bool runs() const { return !m_display.empty(); }

    std::string display() const { return ":" + m_display; }

private:
    [[noreturn]] static void become(const std::vector<std::string>& options, int answer)
    {
        // It chooses a free display, and writes the number when it is ready.
        std::vector<std::string> words = {
            "Xvfb", "-displayfd", std::to_string(answer), "-screen", "0", "1024x768x24", "-nolisten", "tcp"};
        words.insert(words.end(), options.begin(), options.end());
        std::vector<char*> arguments;
        for (std::string& each : words)
            arguments.push_back(each.data());
        arguments.push_back(nullptr);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        execvp(arguments[0], arguments.data());
        _exit(1);
    }

    static std::string readLine(int file)
    {
        constexpr int LONGEST_WAIT = 20000;  // milliseconds
        std::string line;
        char byte = '\0';
        pollfd waiting{file, POLLIN, 0};
        while (poll(&waiting, 1, LONGEST_WAIT) == 1 && read(file, &byte, 1) == 1 && byte != '\n')
            line += byte;
        return line;
    }

    pid_t m_process = -1;
    std::string m_display;
};

// A record of an X authority file: somebody else's cookie, without which the server lets nobody in.
std::vector<unsigned char> authorityRecord()
{
    std::vector<unsigned char> record = {1, 0};  // for this machine
    for (const std::string& each :
        {std::string("host"), std::string("0"), std::string("MIT-MAGIC-COOKIE-1"), std::string("sixteen bytes...")}) {
        record.push_back(0);
        record.push_back(static_cast<unsigned char>(each.size()));
        record.insert(record.end(), each.begin(), each.end());
    }
    return record;
}

class RealScreen : public Screen {
protected:
    void SetUp() override
    {
        if (!m_server.runs())
            GTEST_SKIP() << "Xvfb is not here";
        setenv("DISPLAY", m_server.display().c_str(), 1);
    }

    const XServer m_server;
};

TEST_F(RealScreen, AnswersBesideADeadWaylandDisplay)
{
    setenv("WAYLAND_DISPLAY", "wayland-4711", 1);
    EXPECT_TRUE(Toolbox::ScreenAnswers());
}

TEST_F(RealScreen, DoesNotAnswerWhomItRefuses)
{
    const TemporaryFolder folder;
    const XServer refusing({"-auth", folder.write("cookies", authorityRecord())});
    ASSERT_TRUE(refusing.runs());
    setenv("DISPLAY", refusing.display().c_str(), 1);
    setenv("XAUTHORITY", "/dev/null", 1);
    EXPECT_FALSE(Toolbox::ScreenAnswers());
}

// The last one: from then on Qt has threads that talk to the desktop, and a child that is forked while one of them
// allocates can wait for ever for the sanitizers' heap.
TEST_F(RealScreen, AnswersAndShowsWindows)
{
    EXPECT_TRUE(Toolbox::ScreenAnswers());

    std::string problem;
    ASSERT_TRUE(Toolbox::UseScreenDisplay(&problem)) << problem;
    Toolbox::WantPicture();
    const Person person({[](QDialog&) { EXPECT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")); },
        press(Qt::Key_Down), press(Qt::Key_Return)});
    EXPECT_EQ(Dialog().run(), "ended: item 3 ok");
    const std::vector<UInt8> png = Toolbox::TakeReport().picture;
    EXPECT_EQ(QImage::fromData(png.data(), static_cast<int>(png.size())).width(), 340);
}

}  // namespace
