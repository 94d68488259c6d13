#include "host/CallGuard.h"

#include "host/Process.h"

#include <cxxabi.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iterator>
#include <new>
#include <string>
#include <typeinfo>

namespace Host {

namespace {

// What is said of an end, around what has happened, and the status.
struct Words {
    const char* before;
    const char* after;
    ExitStatus status;
};

constexpr Words WORDS[] = {
    {"the host ", "", ExitStatus::NotDone},
    {"the external ", " while it was loaded", ExitStatus::NotReturned},
    {"the call did not return: the external ", "", ExitStatus::NotReturned},
    {"the call did not return: the screen went away, or the external ", "", ExitStatus::NotReturned},
    {"the external ", " while it was released", ExitStatus::NotReturned},
    {"the external ", " after its call", ExitStatus::NotReturned},
};
static_assert(std::size(WORDS) == static_cast<std::size_t>(Running::End) + 1, "there are words for all that may run");

// What the child lets its watcher know, in memory that both have.
struct Progress {
    Running running;
    int status;  // with which it will end, or -1
};

Progress unwatched = {Running::Host, -1};
volatile Progress* progress = &unwatched;

// Without allocating anything: memory may have run out, or be in disorder.
ExitStatus say(const char* whatHappened)
{
    const Words& around = WORDS[static_cast<std::size_t>(progress->running)];
    writeToStandardError({"visex-host: ", around.before, whatHappened, around.after, "\n"});
    return around.status;
}

// ---- In the child

bool externalWasRun = false;

// For an exit in the middle of the work, as Qt makes when the screen goes away: what would be taken apart is in use.
void endAtOnce()
{
    if (progress->status < 0)
        _exit(EXIT_FAILURE);
}

[[noreturn]] void endSaying(const char* whatHappened)
{
    progress->status = static_cast<int>(say(whatHappened));
    _exit(progress->status);
}

// For what is thrown where nothing may be thrown, which the host does only for want of memory.
void onTerminate()
{
    const std::type_info* const thrown = abi::__cxa_current_exception_type();
    if (thrown != nullptr && *thrown == typeid(std::bad_alloc))
        endSaying("ran out of memory");
    std::abort();
}

// ---- In the process that watches it

volatile pid_t child = 0;

// The ways in which a person, a shell or a session asks a process to end, and those that were passed on.
constexpr int REQUESTS[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};
volatile std::sig_atomic_t passedOn[NSIG];

void passOn(int request)
{
    passedOn[request] = 1;
    kill(child, request);
}

// Those that whoever started the process had it ignore stay so.
void passRequestsOn()
{
    for (const int request : REQUESTS)
        if (std::signal(request, passOn) == SIG_IGN)
            std::signal(request, SIG_IGN);
}

ExitStatus judge(int end)
{
    if (WIFEXITED(end))
        return WEXITSTATUS(end) == progress->status ? static_cast<ExitStatus>(progress->status)
                                                    : say("ended the process");
    const int ending = WTERMSIG(end);
    if (passedOn[ending] != 0) {
        std::signal(ending, SIG_DFL);
        std::raise(ending);
    }
    if (ending == SIGABRT)
        return say("called abort, or threw where nothing may be thrown");
    return say((std::string("was ended by a signal, \"") + strsignal(ending) + '"').c_str());
}

ExitStatus watch()
{
    int end = 0;
    while (waitpid(child, &end, 0) < 0 && errno == EINTR) { }
    const std::string left(unsaid, strnlen(unsaid, UNSAID_SIZE));  // as when the external has closed standard error
    writeToStandardError({left.c_str()});
    return judge(end);
}

// Gives the child what it needs to tell how far it is. False, with the reason in errno, if it cannot be had.
bool shareProgress()
{
    void* const shared =
        mmap(nullptr, sizeof(Progress) + UNSAID_SIZE, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED)
        return false;
    progress = new (shared) Progress(unwatched);
    unsaid = static_cast<char*>(shared) + sizeof(Progress);
    return true;
}

}  // namespace

ExitStatus watched(const std::function<ExitStatus()>& program)
{
    std::set_terminate(onTerminate);
    std::signal(SIGCHLD, SIG_DFL);  // where it is ignored, nobody learns how a child ended
    const pid_t watcher = getpid();
    {
        const HeldSignals held;  // as long as there is nobody to pass them on to
        child = shareProgress() ? fork() : -1;
        if (child > 0)
            passRequestsOn();
    }
    if (child < 0) {
        complain("cannot start a child process: " + lastError());
        return ExitStatus::NotDone;
    }
    if (child > 0)
        return watch();

    prctl(PR_SET_PDEATHSIG, SIGKILL);  // nothing else ends a process that is stopped, or ignores what can be ignored
    if (getppid() != watcher)
        _exit(EXIT_FAILURE);  // it has gone already
    std::atexit(endAtOnce);
    pthread_atfork(nullptr, nullptr, [] { progress = &unwatched, unsaid = nullptr; });  // a copy has nobody to tell
    const ExitStatus status = program();
    progress->running = externalWasRun ? Running::End : Running::Host;
    progress->status = static_cast<int>(status);
    return status;
}

void guarded(Running what, const std::function<void()>& code)
{
    externalWasRun = true;
    progress->running = what;
    try {
        code();
    } catch (const Problem&) {
        progress->running = Running::Host;
        throw;
    } catch (const std::bad_alloc&) {
        endSaying("ran out of memory");
    } catch (const std::exception& exception) {
        endSaying((std::string("threw an exception, \"") + oneLine(exception.what()) + '"').c_str());
    } catch (...) {  // pthread_exit comes by here too, and must not go on
        endSaying("ended the host's thread, or threw something other than a std::exception");
    }
    progress->running = Running::Host;
}

}  // namespace Host
