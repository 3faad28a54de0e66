#pragma once

#include <chrono>
#include <string>

#include <component/app_manager/tvo_ipc/control_records.h>

namespace tvoctl {

/// ISO 8601, in UTC: "2026-01-31T23:59:59.000001Z".
std::string IsoText(app_manager::control::Moment moment);

/// In the time zone of the process: "2026-01-31 23:59:59 +0000".
std::string LocalText(app_manager::control::Moment moment);

/// In its two largest units: "0.4 s", "2 min 5 s", "3 d 1 h".
std::string SpanText(std::chrono::milliseconds span);

}  // namespace tvoctl
