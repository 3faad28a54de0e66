#include "timer_queue.h"

#include <algorithm>
#include <utility>

#include "guarded.h"

namespace tvo::service {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds Longest = std::chrono::hours(24 * 365);
constexpr std::uint32_t WithoutLimit = 0xFFFFFFFFU;

}  // namespace

struct TimerQueue::Timer
{
    milliseconds interval;  ///< zero: only once
    std::function<void()> callback;
    TimerQueue* queue = nullptr;  ///< null while it is in none
    Timers::iterator row = {};
};

class TimerQueue::Token final : public ITimerToken
{
public:
    explicit Token(std::shared_ptr<Timer> timer) : m_timer(std::move(timer)) {}

    ~Token() override
    {
        if (TimerQueue* const queue = std::exchange(m_timer->queue, nullptr))
        {
            queue->m_timers.erase(m_timer->row);
        }
    }

private:
    const std::shared_ptr<Timer> m_timer;
};

TimerQueue::~TimerQueue()
{
    for (const auto& [due, timer] : m_timers)
    {
        timer->queue = nullptr;
    }
}

TimerToken TimerQueue::AddOnce(milliseconds delay, std::function<void()> callback)
{
    return Add(delay, milliseconds::zero(), std::move(callback));
}

TimerToken TimerQueue::AddRepeating(milliseconds interval, std::function<void()> callback)
{
    const milliseconds usable = std::clamp(interval, milliseconds(1), Longest);
    return Add(usable, usable, std::move(callback));
}

TimerToken TimerQueue::Add(milliseconds delay,
                           milliseconds interval,
                           std::function<void()> callback)
{
    const auto timer = std::make_shared<Timer>(Timer{interval, std::move(callback)});
    Enter(Clock::now() + std::clamp(delay, milliseconds::zero(), Longest), timer);
    return std::make_unique<Token>(timer);
}

void TimerQueue::Enter(Clock::time_point due, const std::shared_ptr<Timer>& timer)
{
    timer->row = m_timers.emplace(due, timer);
    timer->queue = this;
}

bool TimerQueue::HasDue(Clock::time_point now) const
{
    return !m_timers.empty() && m_timers.begin()->first <= now;
}

std::uint32_t TimerQueue::TimeLeft(Clock::time_point now) const
{
    if (m_timers.empty())
    {
        return WithoutLimit;
    }
    const auto left = std::chrono::ceil<milliseconds>(m_timers.begin()->first - now);
    return static_cast<std::uint32_t>(std::clamp<std::int64_t>(left.count(), 0, WithoutLimit - 1));
}

void TimerQueue::RunDue(Clock::time_point now)
{
    while (HasDue(now))
    {
        const auto [due, timer] = *m_timers.begin();
        m_timers.erase(m_timers.begin());
        timer->queue = nullptr;
        if (timer->interval > milliseconds::zero())
        {
            Enter(due + timer->interval * ((now - due) / timer->interval + 1), timer);
        }
        Guarded("a timer", timer->callback);
    }
}

}  // namespace tvo::service
