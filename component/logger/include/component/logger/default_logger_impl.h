#pragma once

#include <atomic>
#include <memory>
#include <string>

#include <component/logger/log_level.h>

namespace spdlog {
class logger;
namespace sinks {
class sink;
}
}  // namespace spdlog

namespace tvo::logger {

/// What stands behind the root logger: the threshold and the way of a line to its output. A derived
/// class may send lines elsewhere. All operations but `Configure` are called by any thread at any
/// time.
class DefaultLoggerImpl
{
public:
    /// Writes to standard error.
    DefaultLoggerImpl();

    /// @param output  where lines go, escaped and with equal ones joined; called by one thread at a
    ///                time
    explicit DefaultLoggerImpl(std::shared_ptr<spdlog::sinks::sink> output);

    virtual ~DefaultLoggerImpl();

    DefaultLoggerImpl(const DefaultLoggerImpl&) = delete;
    DefaultLoggerImpl& operator=(const DefaultLoggerImpl&) = delete;

    /// Whether a line of the level would be written. Costs one read without a lock. A level above
    /// `Off` counts as `Off`, for which the answer is always true.
    [[nodiscard]] virtual bool IsEnabled(LogLevel level) const;

    /// Writes one finished message. Newlines and other control characters are shown as escapes.
    /// @param file, function  not null; empty where unknown
    virtual void Write(LogLevel level,
                       const char* file,
                       int line,
                       const char* function,
                       const std::string& message);

    /// Names the process in its lines and sets the threshold; called before the implementation
    /// becomes the root logger's.
    virtual void Configure(const char* tag, LogLevel threshold);

    /// Writes what is held back of equal lines.
    virtual void Flush();

    void SetThreshold(LogLevel threshold);

private:
    const std::shared_ptr<spdlog::sinks::sink> m_output;
    std::shared_ptr<spdlog::logger> m_logger;
    // The same as the logger's, where asking costs one read.
    std::atomic<LogLevel> m_threshold = LogLevel::Info;
};

}  // namespace tvo::logger
