#pragma once

namespace common::utils {

/// Sends the platform's own lines to the root logger, under the function name "Platform". For a
/// program's start, once its logger is set up.
void LogPlatformLines();

}  // namespace common::utils
