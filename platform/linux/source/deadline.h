#pragma once

#include <algorithm>
#include <chrono>
#include <climits>
#include <cstdint>

namespace platform {

/// The moment at which a limit in milliseconds has passed; 0xFFFFFFFF never does.
class Deadline final
{
public:
    using Clock = std::chrono::steady_clock;

    explicit Deadline(std::uint32_t milliseconds)
        : m_when(milliseconds == 0xFFFFFFFFU
                     ? Clock::time_point::max()
                     : Clock::now() + std::chrono::milliseconds(milliseconds))
    {}

    bool IsInfinite() const
    {
        return m_when == Clock::time_point::max();
    }

    bool HasPassed() const
    {
        return !IsInfinite() && Clock::now() >= m_when;
    }

    Clock::time_point When() const
    {
        return m_when;
    }

    /// For poll and epoll: -1 without a limit, otherwise what is left, rounded up.
    int Left() const
    {
        return IsInfinite() ? -1 : MillisecondsUntil(m_when);
    }

    static int MillisecondsUntil(Clock::time_point when)
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(when - Clock::now());
        return static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, INT_MAX));
    }

private:
    Clock::time_point m_when;
};

}  // namespace platform
