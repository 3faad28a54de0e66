#include "awaited_signals.h"

#include <sys/signalfd.h>

namespace platform {

AwaitedSignals::AwaitedSignals(std::initializer_list<int> numbers)
{
    sigset_t awaited;
    sigset_t former;
    ::sigemptyset(&awaited);
    ::sigemptyset(&m_heldBack);
    for (const int number : numbers)
    {
        ::sigaddset(&awaited, number);
    }
    ::pthread_sigmask(SIG_BLOCK, &awaited, &former);
    for (const int number : numbers)
    {
        if (::sigismember(&former, number) == 0)
        {
            ::sigaddset(&m_heldBack, number);
        }
    }
    m_signals.Reset(::signalfd(-1, &awaited, SFD_CLOEXEC | SFD_NONBLOCK));
}

AwaitedSignals::~AwaitedSignals()
{
    // What has come meanwhile has had its effect.
    Reported();
    ::pthread_sigmask(SIG_UNBLOCK, &m_heldBack, nullptr);
}

void AwaitedSignals::Reported()
{
    signalfd_siginfo ignored;
    while (::read(m_signals.Get(), &ignored, sizeof ignored) > 0)
    {}
}

}  // namespace platform
