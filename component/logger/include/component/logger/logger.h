#pragma once

#include <utility>

#include <fmt/format.h>

#include <component/logger/log_level.h>
#include <component/logger/tvo_logger.h>

namespace tvo::logger {

/// The question that every site asks before it evaluates anything: one virtual call.
inline bool IsEnabled(LogLevel level)
{
    return level < LogLevel::Off && TVOLogger::RootLogger().Implementation().IsEnabled(level);
}

/// Formats and writes a line whose format was checked by the compiler.
template <class... Args>
void LogChecked(LogLevel level,
                const char* file,
                int line,
                const char* function,
                fmt::format_string<Args...> format,
                Args&&... args)
{
    TVOLogger::RootLogger().Log(
        level, file, line, function, fmt::string_view(format), std::forward<Args>(args)...);
}

}  // namespace tvo::logger

/// Writes a line under a function name of the site's choice:
/// TVO_LOG_AS(level, "GetSettingValue", "can not get '{}'", path). The arguments of a suppressed
/// line are not evaluated; a format that does not fit its arguments does not compile.
#define TVO_LOG_AS(level, function, ...)                                                       \
    do                                                                                         \
    {                                                                                          \
        if (const ::tvo::logger::LogLevel tvoLogLevel = (level);                               \
            ::tvo::logger::IsEnabled(tvoLogLevel))                                             \
        {                                                                                      \
            ::tvo::logger::LogChecked(tvoLogLevel, __FILE__, __LINE__, function, __VA_ARGS__); \
        }                                                                                      \
    } while (false)

/// Writes a line under the name of the function that it stands in.
#define TVO_LOG(level, ...) TVO_LOG_AS(level, __func__, __VA_ARGS__)

#define TVO_LOG_TRACE(...) TVO_LOG(::tvo::logger::LogLevel::Trace, __VA_ARGS__)
#define TVO_LOG_DEBUG(...) TVO_LOG(::tvo::logger::LogLevel::Debug, __VA_ARGS__)
#define TVO_LOG_INFO(...) TVO_LOG(::tvo::logger::LogLevel::Info, __VA_ARGS__)
#define TVO_LOG_WARNING(...) TVO_LOG(::tvo::logger::LogLevel::Warning, __VA_ARGS__)
#define TVO_LOG_ERROR(...) TVO_LOG(::tvo::logger::LogLevel::Error, __VA_ARGS__)
#define TVO_LOG_CRITICAL(...) TVO_LOG(::tvo::logger::LogLevel::Critical, __VA_ARGS__)
