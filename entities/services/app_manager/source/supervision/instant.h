#pragma once

#include <chrono>
#include <functional>

#include <component/app_manager/tvo_ipc/control_records.h>

namespace app_manager::service {

using TimePoint = std::chrono::steady_clock::time_point;

/// A moment by the clock that limits go by, and by the one that people read.
struct Instant
{
    TimePoint steady;
    control::Moment wall;
};

using Clock = std::function<Instant()>;

}  // namespace app_manager::service
