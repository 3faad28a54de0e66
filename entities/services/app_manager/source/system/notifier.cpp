#include "system/notifier.h"

#include <ctime>

#include <fmt/format.h>
#include <systemd/sd-daemon.h>

namespace app_manager::service {
namespace {

std::uint64_t MonotonicMicroseconds()
{
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000 +
           static_cast<std::uint64_t>(now.tv_nsec) / 1'000;
}

void Tell(const std::string& text)
{
    ::sd_notify(0, text.c_str());
}

}  // namespace

void Notifier::Ready()
{
    Tell("READY=1");
}

void Notifier::Reloading()
{
    Tell(fmt::format("RELOADING=1\nMONOTONIC_USEC={}", MonotonicMicroseconds()));
}

void Notifier::Stopping()
{
    Tell("STOPPING=1");
}

void Notifier::Status(const std::string& line)
{
    Tell("STATUS=" + line);
}

void Notifier::Alive()
{
    Tell("WATCHDOG=1");
}

std::optional<std::chrono::milliseconds> Notifier::AliveInterval() const
{
    std::uint64_t microseconds = 0;
    if (::sd_watchdog_enabled(0, &microseconds) <= 0)
    {
        return std::nullopt;
    }
    return std::chrono::milliseconds(microseconds / 2'000);
}

}  // namespace app_manager::service
