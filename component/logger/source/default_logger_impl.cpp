#include <algorithm>

#include <spdlog/logger.h>
#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/stdout_sinks.h>

#include <component/logger/default_logger_impl.h>

#include "joining_sink.h"
#include "second_flag.h"

namespace tvo::logger {
namespace {

constexpr const char* DefaultTag = "tvo";

// second.millisecond [level] [tag] [thread] [file:line] function: message
constexpr const char* Layout = "%*.%e [%l] [%n] [%t] [%@] %!: %v";

spdlog::level::level_enum ToSpdlog(LogLevel level)
{
    return static_cast<spdlog::level::level_enum>(std::min(level, LogLevel::Off));
}

std::shared_ptr<spdlog::logger> MakeLogger(const char* tag,
                                           const std::shared_ptr<spdlog::sinks::sink>& output)
{
    auto logger = std::make_shared<spdlog::logger>(tag, std::make_shared<JoiningSink>(output));
    auto formatter = std::make_unique<spdlog::pattern_formatter>();
    formatter->add_flag<SecondFlag>('*').set_pattern(Layout);
    logger->set_formatter(std::move(formatter));
    return logger;
}

}  // namespace

DefaultLoggerImpl::DefaultLoggerImpl()
    : DefaultLoggerImpl(std::make_shared<spdlog::sinks::stderr_sink_st>())
{}

DefaultLoggerImpl::DefaultLoggerImpl(std::shared_ptr<spdlog::sinks::sink> output)
    : m_output(std::move(output)), m_logger(MakeLogger(DefaultTag, m_output))
{
    SetThreshold(LogLevel::Info);
}

DefaultLoggerImpl::~DefaultLoggerImpl() = default;

bool DefaultLoggerImpl::IsEnabled(LogLevel level) const
{
    return m_threshold.load(std::memory_order_relaxed) <= std::min(level, LogLevel::Off);
}

void DefaultLoggerImpl::Write(LogLevel level,
                              const char* file,
                              int line,
                              const char* function,
                              const std::string& message)
{
    m_logger->log(spdlog::source_loc(file, line, function), ToSpdlog(level), message);
}

void DefaultLoggerImpl::Configure(const char* tag, LogLevel threshold)
{
    m_logger = MakeLogger(tag, m_output);
    SetThreshold(threshold);
}

void DefaultLoggerImpl::Flush()
{
    m_logger->flush();
}

void DefaultLoggerImpl::SetThreshold(LogLevel threshold)
{
    m_logger->set_level(ToSpdlog(threshold));
    m_threshold = threshold;
}

}  // namespace tvo::logger
