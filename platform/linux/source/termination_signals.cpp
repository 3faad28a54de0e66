#include "termination_signals.h"

#include <sys/signalfd.h>

namespace platform {

TerminationSignals::TerminationSignals()
{
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGTERM);
    ::sigaddset(&signals, SIGINT);
    ::pthread_sigmask(SIG_BLOCK, &signals, &m_former);
    m_signals.Reset(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
}

TerminationSignals::~TerminationSignals()
{
    // What has come meanwhile has had its effect.
    Reported();
    ::pthread_sigmask(SIG_SETMASK, &m_former, nullptr);
}

void TerminationSignals::Reported()
{
    signalfd_siginfo ignored;
    while (::read(m_signals.Get(), &ignored, sizeof ignored) > 0)
    {}
}

}  // namespace platform
