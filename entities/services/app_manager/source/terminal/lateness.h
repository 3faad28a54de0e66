#pragma once

#include <chrono>

#include "supervision/instant.h"

namespace app_manager::service {

/// Notices that this process itself was held up. It counts on being asked at least once an
/// interval.
class Lateness final
{
public:
    static constexpr std::chrono::seconds Interval{1};

    /// How much is no lateness.
    static constexpr std::chrono::seconds Tolerance{1};

    /// @returns how much later it was asked than it should have been, or zero
    TimePoint::duration Since(TimePoint now)
    {
        const auto late = m_isRunning ? now - (m_asked + Interval) : TimePoint::duration::zero();
        m_asked = now;
        m_isRunning = true;
        return late > Tolerance ? late : TimePoint::duration::zero();
    }

private:
    TimePoint m_asked;
    bool m_isRunning = false;
};

}  // namespace app_manager::service
