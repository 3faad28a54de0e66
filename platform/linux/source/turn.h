#pragma once

#include <condition_variable>
#include <mutex>

#include "deadline.h"

namespace platform {

/// Lets one thread at a time through, others wait within their limits. Closing it frees them.
/// (`std::timed_mutex` would do but for that, and for the thread sanitizer, which does not see it.)
class Turn final
{
public:
    enum class Result
    {
        Mine,
        TimedOut,
        Closed,
    };

    Result Take(const Deadline& deadline)
    {
        std::unique_lock lock(m_mutex);
        const auto decided = [this]
        {
            return m_closed || !m_taken;
        };
        if (!decided())
        {
            ++m_waiting;
            if (deadline.IsInfinite())
            {
                m_changed.wait(lock, decided);
            }
            else
            {
                m_changed.wait_until(lock, deadline.When(), decided);
            }
            --m_waiting;
        }
        if (m_closed || m_taken)
        {
            return m_closed ? Result::Closed : Result::TimedOut;
        }
        m_taken = true;
        return Result::Mine;
    }

    void Give()
    {
        const std::lock_guard lock(m_mutex);
        m_taken = false;
        if (m_waiting > 0)
        {
            m_changed.notify_one();
        }
    }

    void Close()
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
        m_changed.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_waiting = 0;
    bool m_taken = false;
    bool m_closed = false;
};

}  // namespace platform
