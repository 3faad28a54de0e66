#include <algorithm>
#include <memory>
#include <mutex>

#include <component/logger/testing/recording_logger.h>

namespace tvo::logger::testing {

class RecordingLogger::Implementation final : public DefaultLoggerImpl
{
public:
    void Write(LogLevel level,
               const char* /*file*/,
               int /*line*/,
               const char* function,
               const std::string& message) override
    {
        const std::lock_guard lock(m_mutex);
        m_lines.push_back({level, function, message});
    }

    std::vector<RecordedLine> Lines()
    {
        const std::lock_guard lock(m_mutex);
        return m_lines;
    }

private:
    std::mutex m_mutex;
    std::vector<RecordedLine> m_lines;
};

RecordingLogger::RecordingLogger() : m_former(TVOLogger::RootLogger().Implementation())
{
    auto implementation = std::make_unique<Implementation>();
    m_implementation = implementation.get();
    TVOLogger::Setup("test", LogLevel::Trace, std::move(implementation));
}

RecordingLogger::~RecordingLogger()
{
    TVOLogger::RootLogger().Use(m_former);
}

std::vector<RecordedLine> RecordingLogger::Lines() const
{
    return m_implementation->Lines();
}

bool RecordingLogger::Contains(LogLevel level, std::string_view message) const
{
    const auto lines = Lines();
    return std::ranges::any_of(lines,
                               [&](const RecordedLine& line)
                               { return line.level == level && line.message == message; });
}

}  // namespace tvo::logger::testing
