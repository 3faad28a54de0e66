#pragma once

#include <memory>

#include <shared/common/timer/timer.h>

namespace vdi::common_utils_ui::timer {

/// Makes timers that tick in the event loop of the thread that asks for them, and that die with the
/// application object at the latest: a timer must not be used after that.
class QtTimerFactory final : public ::timer::ITimerFactory
{
public:
    [[nodiscard]] std::unique_ptr<::timer::ITimer> CreateTimer() override;
};

}  // namespace vdi::common_utils_ui::timer
