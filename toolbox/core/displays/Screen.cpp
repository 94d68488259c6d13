#include "toolbox/core/displays/Screen.h"

#include "toolbox/base/CurrentReport.h"
#include "toolbox/core/displays/ScreenLibrary.h"

#include <Toolbox/Displays.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QStringList>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>
#include <optional>
#include <utility>

namespace Toolbox {

namespace {

// Whether a trial has answered is looked at every LOOK milliseconds. These limits are numbers of such looks.
constexpr int LOOK = 125;
constexpr int LONGEST_SILENCE = 2'000 / LOOK;
constexpr int LONGEST_TRIAL = 60'000 / LOOK;

// In a process of its own: writes one byte to `answer` when Qt could start. Says nothing, leaves no core file, and does
// not outlive its parent.
[[noreturn]] void tryPlatform(const ScreenLibrary& library, const QByteArray& platform, int answer)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    prctl(PR_SET_DUMPABLE, 0);
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nowhere, stream);
    const bool answered = library.tryPlatform(platform) && write(answer, "y", 1) == 1;
    _exit(answered ? 0 : 1);
}

// How long the process has computed, in nanoseconds.
long long workOf(pid_t process)
{
    clockid_t clock;
    timespec work{};
    if (clock_getcpuclockid(process, &clock) == 0)
        clock_gettime(clock, &work);
    return work.tv_sec * 1'000'000'000LL + work.tv_nsec;
}

// Whether a byte arrives in `file`, into which `process` writes it. On a busy machine it may take long to come so far,
// so what counts is the time in which it does nothing but wait for the screen.
bool byteArrives(int file, pid_t process)
{
    long long work = 0;
    int silence = 0;
    for (int looks = 0; looks < LONGEST_TRIAL && silence < LONGEST_SILENCE; ++looks) {
        pollfd waiting{file, POLLIN, 0};
        const int ready = poll(&waiting, 1, LOOK);
        char byte = '\0';
        if (ready > 0)
            return read(file, &byte, 1) == 1;
        if (ready < 0 && errno != EINTR)
            return false;
        const long long before = std::exchange(work, workOf(process));
        silence = work == before ? silence + 1 : 0;
    }
    return false;
}

// The platforms that the environment speaks of, the one to be preferred first.
QList<QByteArray> namedPlatforms()
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        return {QByteArray()};
    QList<QByteArray> platforms;
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        platforms.append("wayland");
    if (!qEnvironmentVariableIsEmpty("DISPLAY"))
        platforms.append("xcb");
    return platforms;
}

// Why none of them answers: a package, or the display that the environment names.
QString whatIsMissing()
{
    QStringList named;
    for (const char* const variable : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"})
        if (!qEnvironmentVariableIsEmpty(variable))
            named.append(QStringLiteral("%1=%2").arg(QLatin1String(variable), qEnvironmentVariable(variable)));
    if (named.isEmpty())
        return QStringLiteral("neither WAYLAND_DISPLAY nor DISPLAY names a screen");
    const QString plugIn =
        QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms/libqwayland-generic.so");
    const bool lacksPlugIn = namedPlatforms().contains("wayland") && !QFileInfo::exists(plugIn);
    return QStringLiteral("no screen answers at %1").arg(named.join(QStringLiteral(" or ")))
        + (lacksPlugIn ? QStringLiteral("; for Wayland, Qt needs the package qt6-wayland") : QString());
}

// The platform on which windows can be shown: the one that the user's QT_QPA_PLATFORM names, else Wayland where there
// is a session of it, else X. Nothing, with the reason in `*problem`, when none answers.
std::optional<QByteArray> answeringPlatform(QString* problem)
{
    if (QCoreApplication::instance() != nullptr) {  // there can only be one, and this one is somebody else's
        *problem = QStringLiteral("the process has an application without a screen");
        return QCoreApplication::instance()->inherits("QGuiApplication") ? std::optional(QByteArray()) : std::nullopt;
    }
    for (const QByteArray& each : namedPlatforms())
        if (platformAnswers(each))
            return each;
    *problem = whatIsMissing();
    return std::nullopt;
}

}  // namespace

bool platformAnswers(const QByteArray& platform)
{
    QString problem;
    const ScreenLibrary* const library = screenLibrary(&problem);
    int ends[2];
    if (library == nullptr || pipe2(ends, O_CLOEXEC) != 0)
        return false;
    const pid_t child = fork();
    if (child == 0)
        tryPlatform(*library, platform, ends[1]);
    close(ends[1]);
    const bool answered = child > 0 && byteArrives(ends[0], child);
    close(ends[0]);
    if (child > 0) {
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
    return answered;
}

bool UseScreenDisplay(std::string* problem)
{
    QString reason;
    const std::optional<QByteArray> platform = answeringPlatform(&reason);
    const ScreenLibrary* const library = screenLibrary(&reason);
    if (!platform || library == nullptr) {
        *problem = reason.toStdString();
        return false;
    }
    setCurrentDisplay(library->makeDisplay(*platform));
    return true;
}

bool UseScreenDisplayIfAny()
{
    std::string problem;
    const bool isUsed = UseScreenDisplay(&problem);
    if (!isUsed && !namedPlatforms().isEmpty())  // or nobody has spoken of a screen
        remark(problem);
    return isUsed;
}

}  // namespace Toolbox
