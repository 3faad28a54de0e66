#include "signals.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

namespace tvoctl {
namespace {

/// For a line that nobody takes off our hands.
constexpr std::chrono::seconds LineLimit{1};

}  // namespace

void EndOnSignals(Output& out)
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::thread(
        [signals, &out]
        {
            int signal = 0;
            sigwait(&signals, &signal);
            out.Close(LineLimit);
            std::_Exit(EXIT_SUCCESS);
        })
        .detach();
}

}  // namespace tvoctl
