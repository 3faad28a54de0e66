#pragma once

#include <memory>
#include <string>

#include <component/logger/log_level.h>

namespace spdlog {
class logger;
}

namespace tvo::logger {

/// What stands behind the root logger: the threshold and the way of a line to its output, which is
/// standard error. A derived class may send lines elsewhere. All operations but `Configure` are
/// called by any thread at any time.
class DefaultLoggerImpl
{
public:
    DefaultLoggerImpl();
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
    std::shared_ptr<spdlog::logger> m_logger;
};

}  // namespace tvo::logger
