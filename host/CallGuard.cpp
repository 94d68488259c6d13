#include "host/CallGuard.h"

#include <cxxabi.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

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

// What is said of an end, around what has happened.
struct Words {
    const char* before;
    const char* after;
};

constexpr Words WORDS[] = {
    {"the external ", " while it was loaded"},
    {"the call did not return: the external ", ""},
    {"the call did not return: the screen went away, or the external ", ""},
    {"the external ", " while it was released"},
};
constexpr Words WORDS_AT_THE_END = {"the external ", " after its call"};

// All that is needed to say it without allocating anything: memory may have run out, or be in disorder. The text of an
// exception alone is put together first; when that finds no memory, onTerminate() says so.
const Words* words = nullptr;  // null: the process may end as it likes
pid_t caller = 0;              // the process that is guarded; those that it starts may end as they like
int expectedStatus = -1;       // the one status with which it may exit; -1 until everything is done

[[noreturn]] void endProcess(int status)
{
    for (;;)
        syscall(SYS_exit_group, status);
}

iovec part(const char* text)
{
    return {const_cast<char*>(text), std::strlen(text)};
}

[[noreturn]] void endSaying(const char* whatHappened, const Words& around, ExitStatus status)
{
    const iovec line[] = {
        part("visex-host: "), part(around.before), part(whatHappened), part(around.after), part("\n")};
    [[maybe_unused]] const ssize_t written = writev(STDERR_FILENO, line, static_cast<int>(std::size(line)));
    endProcess(static_cast<int>(status));
}

[[noreturn]] void endSaying(const char* whatHappened)
{
    endSaying(whatHappened, *words, ExitStatus::NotReturned);
}

bool isGuarded()
{
    return words != nullptr && getpid() == caller;
}

void onEnd()
{
    if (isGuarded())
        endSaying("ended the process");
}

void onExit(int status, void*)
{
    if (status != expectedStatus)
        onEnd();
}

void onAbort(int)
{
    if (isGuarded())
        endSaying("called abort, or threw where nothing may be thrown");
}

// For what is thrown where nothing may be thrown, which the host does only for want of memory.
void onTerminate()
{
    if (words == nullptr)
        endSaying("there is not enough memory", {"", ""}, ExitStatus::NotDone);
    const std::type_info* const thrown = abi::__cxa_current_exception_type();
    if (thrown != nullptr && *thrown == typeid(std::bad_alloc) && isGuarded())
        endSaying("ran out of memory");
    std::abort();
}

[[maybe_unused]] const std::terminate_handler BEFORE = std::set_terminate(onTerminate);

void guardWith(const Words& said)
{
    static const bool registered =
        on_exit(onExit, nullptr) == 0 && std::at_quick_exit(onEnd) == 0 && std::signal(SIGABRT, onAbort) != SIG_ERR;
    words = registered ? &said : nullptr;
    caller = getpid();
}

}  // namespace

void guarded(Running what, const std::function<void()>& code)
{
    guardWith(WORDS[static_cast<std::size_t>(what)]);
    try {
        code();
    } catch (const Problem&) {
        words = nullptr;
        throw;
    } catch (const std::bad_alloc&) {
        endSaying("ran out of memory");
    } catch (const std::exception& exception) {
        endSaying((std::string("threw an exception, \"") + oneLine(exception.what()) + '"').c_str());
    } catch (...) {  // pthread_exit comes by here too, and must not go on
        endSaying("ended the host's thread, or threw something other than a std::exception");
    }
    words = nullptr;
}

int guardedEnd(ExitStatus status)
{
    expectedStatus = static_cast<int>(status);
    if (caller != 0)  // or no external was ever loaded
        guardWith(WORDS_AT_THE_END);
    return expectedStatus;
}

}  // namespace Host

// In place of the C library's, for everything that is loaded: these two call no handlers, and an external would leave
// any status through them, even the one that stands for a chosen language.

extern "C" void _exit(int status)
{
    Host::onEnd();
    Host::endProcess(status);
}

extern "C" void _Exit(int status) noexcept
{
    _exit(status);
}
