#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <utility>

#include <fmt/format.h>

#include <component/logger/default_logger_impl.h>
#include <component/logger/log_level.h>

namespace tvo::logger {

/// The process's logger. It may be used before `Setup` and is never destroyed, so destructors of
/// static objects and threads that outlive `main` may log. Safe for concurrent use.
class TVOLogger
{
public:
    constexpr TVOLogger() = default;

    TVOLogger(const TVOLogger&) = delete;
    TVOLogger& operator=(const TVOLogger&) = delete;

    /// Configures the root logger.
    /// @param tag             names the process in the log
    /// @param level           the threshold
    /// @param implementation  empty for the library's own, which writes to standard error and lets
    ///                        the environment variable TVO_LOG_LEVEL (0 to 6, or a level's name)
    ///                        override the threshold
    static void Setup(const char* tag,
                      LogLevel level,
                      std::unique_ptr<DefaultLoggerImpl> implementation);

    static TVOLogger& RootLogger() noexcept
    {
        return s_root;
    }

    /// @returns the implementation in use; the reference stays valid for the life of the process
    DefaultLoggerImpl& Implementation()
    {
        DefaultLoggerImpl* const implementation = m_implementation.load(std::memory_order_acquire);
        return implementation != nullptr ? *implementation : MakeDefault();
    }

    /// Makes an implementation the one in use again; it must have come from `Implementation`.
    void Use(DefaultLoggerImpl& implementation) noexcept;

    /// Writes one finished message; nothing at the level `Off`.
    void LogImpl(LogLevel level,
                 const char* file,
                 int line,
                 const char* function,
                 std::string& message);

    /// Formats and writes. The level is not looked at: sites ask `IsEnabled` before.
    template <class... Args>
    void Log(LogLevel level,
             const char* file,
             int line,
             const char* function,
             fmt::string_view format,
             Args&&... args)
    {
        std::string message = fmt::vformat(format, fmt::make_format_args(args...));
        LogImpl(level, file, line, function, message);
    }

private:
    DefaultLoggerImpl& MakeDefault();

    static TVOLogger s_root;

    // A thread may still be inside an implementation that was replaced, so none is ever destroyed.
    std::atomic<DefaultLoggerImpl*> m_implementation{nullptr};
};

inline constinit TVOLogger TVOLogger::s_root;

}  // namespace tvo::logger
