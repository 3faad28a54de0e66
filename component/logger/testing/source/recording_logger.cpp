#include <algorithm>
#include <mutex>
#include <utility>

#include <component/logger/testing/recording_logger.h>

namespace tvo::logger::testing {

struct RecordingLogger::Record
{
    std::mutex mutex;
    std::vector<RecordedLine> lines;
};

/// Outlives its recording logger, as every implementation of the root logger does.
class RecordingLogger::Implementation final : public DefaultLoggerImpl
{
public:
    explicit Implementation(std::shared_ptr<Record> record) : m_record(std::move(record)) {}

    void Write(LogLevel level,
               const char* /*file*/,
               int /*line*/,
               const char* function,
               const std::string& message) override
    {
        const std::lock_guard lock(m_record->mutex);
        m_record->lines.push_back({level, function, message});
    }

private:
    std::shared_ptr<Record> m_record;
};

RecordingLogger::RecordingLogger()
    : m_record(std::make_shared<Record>()), m_former(TVOLogger::RootLogger().Implementation())
{
    TVOLogger::Setup("test", LogLevel::Trace, std::make_unique<Implementation>(m_record));
    m_implementation = &TVOLogger::RootLogger().Implementation();
}

RecordingLogger::~RecordingLogger()
{
    TVOLogger::RootLogger().Use(m_former);
}

std::vector<RecordedLine> RecordingLogger::Lines() const
{
    const std::lock_guard lock(m_record->mutex);
    return m_record->lines;
}

bool RecordingLogger::Contains(LogLevel level, std::string_view message) const
{
    const std::lock_guard lock(m_record->mutex);
    return std::any_of(m_record->lines.begin(),
                       m_record->lines.end(),
                       [&](const RecordedLine& line)
                       { return line.level == level && line.message == message; });
}

void RecordingLogger::SetThreshold(LogLevel threshold)
{
    m_implementation->SetThreshold(threshold);
}

}  // namespace tvo::logger::testing
