#pragma once

#include <tvo/platform_log.h>

namespace platform {

/// Writes one line of the platform's own, made like `printf` does.
[[gnu::format(printf, 2, 3)]] void LogLine(TvoPlatformLogLevel level, const char* format, ...);

}  // namespace platform
