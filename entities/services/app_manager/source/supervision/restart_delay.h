#pragma once

#include <algorithm>
#include <chrono>

#include "config/child_config.h"

namespace app_manager::service {

/// How long a child rests before it is started again: twice as long each time.
class RestartDelay final
{
public:
    std::chrono::milliseconds Next(const Limits& limits)
    {
        const auto delay = std::clamp(m_next, limits.restartDelay, limits.restartDelayMax);
        m_next = 2 * delay;
        return delay;
    }

    void FallBack()
    {
        m_next = {};
    }

private:
    std::chrono::milliseconds m_next{};
};

}  // namespace app_manager::service
