#pragma once

enum class TvoPlatformLogLevel
{
    Info = 2,
    Warning = 3,
    Error = 4,
};

/// Receives the platform's own lines; may be called from any thread and must not call back into the
/// platform.
using TvoPlatformLogFunction = void (*)(TvoPlatformLogLevel level, const char* text);

/// Sends the platform's lines to the program's logger. Null restores the default, which is standard
/// error. A line already on its way may still reach the former function.
void TvoPlatformSetLog(TvoPlatformLogFunction function);
