#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <component/logger/logger.h>

namespace tvo::logger::testing {

struct RecordedLine
{
    LogLevel level;
    std::string function;
    std::string message;
};

/// For its lifetime the root logger keeps its lines, of every level, instead of writing them. They
/// may come from any thread. Recording loggers may be nested.
class RecordingLogger
{
public:
    RecordingLogger();
    ~RecordingLogger();

    RecordingLogger(const RecordingLogger&) = delete;
    RecordingLogger& operator=(const RecordingLogger&) = delete;

    [[nodiscard]] std::vector<RecordedLine> Lines() const;

    /// Whether a line of this level and exactly this message was written.
    [[nodiscard]] bool Contains(LogLevel level, std::string_view message) const;

private:
    class Implementation;

    DefaultLoggerImpl& m_former;
    Implementation* m_implementation;  ///< is never destroyed, as all of the root logger's
};

}  // namespace tvo::logger::testing
