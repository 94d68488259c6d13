#include "host/Process.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <initializer_list>

namespace Host {

void holdStandardStreams()
{
    // As a place alone, so that reading and writing fail. A new file gets the lowest free number, which is the one that
    // was found missing.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) == -1 && errno == EBADF)
            open("/dev/null", O_PATH);
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

void clearPlugInPaths()
{
    for (const char* const variable : PLUG_IN_VARIABLES)
        unsetenv(variable);
}

HeldSignals::HeldSignals()
    : m_process(getpid())
    , m_parent(getppid())
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &m_before);
    prctl(PR_GET_PDEATHSIG, &m_deathSignal);
    prctl(PR_SET_PDEATHSIG, 0);
}

HeldSignals::~HeldSignals()
{
    if (getpid() == m_process) {  // a child that was started meanwhile has another parent
        prctl(PR_SET_PDEATHSIG, m_deathSignal);
        if (m_deathSignal != 0 && getppid() != m_parent)
            raise(m_deathSignal);
    }
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

}  // namespace Host
