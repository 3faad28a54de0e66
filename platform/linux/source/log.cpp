#include "log.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>

namespace platform {
namespace {

void WriteToStandardError(TvoPlatformLogLevel /*level*/, const char* text)
{
    std::fprintf(stderr, "platform: %s\n", text);
}

std::atomic<TvoPlatformLogFunction> g_function{&WriteToStandardError};

}  // namespace

void LogLine(TvoPlatformLogLevel level, const char* format, ...)
{
    char text[512];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    g_function.load()(level, text);
}

}  // namespace platform

void TvoPlatformSetLog(TvoPlatformLogFunction function)
{
    platform::g_function = function != nullptr ? function : &platform::WriteToStandardError;
}
