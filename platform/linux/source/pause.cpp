#include "pause.h"

#include <cerrno>
#include <ctime>

#include <xo/sleep.h>

namespace platform {

void PauseAfterFailure()
{
    XoSleep(100);
}

}  // namespace platform

void XoSleep(std::uint32_t milliseconds)
{
    constexpr long Billion = 1'000'000'000;
    timespec until{};
    ::clock_gettime(CLOCK_MONOTONIC, &until);
    until.tv_sec += milliseconds / 1000;
    until.tv_nsec += static_cast<long>(milliseconds % 1000) * 1'000'000;
    if (until.tv_nsec >= Billion)
    {
        ++until.tv_sec;
        until.tv_nsec -= Billion;
    }
    while (::clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) == EINTR)
    {}
}
