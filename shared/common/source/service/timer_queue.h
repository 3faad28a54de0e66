#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>

#include <shared/common/tvo/service/i_service_loop.h>

namespace tvo::service {

/// The timers of a loop, by the moment at which they are due. For one thread.
class TimerQueue final
{
public:
    using Clock = std::chrono::steady_clock;

    TimerQueue() = default;
    ~TimerQueue();
    TimerQueue(const TimerQueue&) = delete;
    TimerQueue& operator=(const TimerQueue&) = delete;

    TimerToken AddOnce(std::chrono::milliseconds delay, std::function<void()> callback);
    TimerToken AddRepeating(std::chrono::milliseconds interval, std::function<void()> callback);

    bool HasDue(Clock::time_point now) const;

    /// @returns milliseconds until a timer is due, rounded up, or 0xFFFFFFFF
    std::uint32_t TimeLeft(Clock::time_point now) const;

    /// Calls back what was due at this moment.
    void RunDue(Clock::time_point now);

private:
    struct Timer;
    class Token;
    using Timers = std::multimap<Clock::time_point, std::shared_ptr<Timer>>;

    TimerToken Add(std::chrono::milliseconds delay,
                   std::chrono::milliseconds interval,
                   std::function<void()> callback);
    void Enter(Clock::time_point due, const std::shared_ptr<Timer>& timer);

    Timers m_timers;
};

}  // namespace tvo::service
