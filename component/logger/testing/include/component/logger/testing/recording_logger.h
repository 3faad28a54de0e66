#pragma once

#include <memory>
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

    /// Changes the threshold, which is `Trace` at first.
    void SetThreshold(LogLevel threshold);

private:
    class Implementation;
    struct Record;

    std::shared_ptr<Record> m_record;
    DefaultLoggerImpl& m_former;
    DefaultLoggerImpl* m_implementation;
};

}  // namespace tvo::logger::testing
