#include <algorithm>

#include <spdlog/logger.h>
#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/stdout_sinks.h>

#include <component/logger/default_logger_impl.h>

#include "joining_sink.h"

namespace tvo::logger {
namespace {

constexpr const char* DefaultTag = "tvo";

// time [level] [tag] [thread] [file:line] function: message
constexpr const char* Layout = "%Y-%m-%d %H:%M:%S.%e [%l] [%n] [%t] [%@] %!: %v";

spdlog::level::level_enum ToSpdlog(LogLevel level)
{
    return static_cast<spdlog::level::level_enum>(std::min(level, LogLevel::Off));
}

std::shared_ptr<spdlog::logger> MakeLogger(const char* tag, LogLevel threshold)
{
    auto sink = std::make_shared<JoiningSink>(std::make_shared<spdlog::sinks::stderr_sink_st>());
    auto logger = std::make_shared<spdlog::logger>(tag, std::move(sink));
    logger->set_formatter(std::make_unique<spdlog::pattern_formatter>(Layout));
    logger->set_level(ToSpdlog(threshold));
    return logger;
}

}  // namespace

DefaultLoggerImpl::DefaultLoggerImpl() : m_logger(MakeLogger(DefaultTag, LogLevel::Info)) {}

DefaultLoggerImpl::~DefaultLoggerImpl() = default;

bool DefaultLoggerImpl::IsEnabled(LogLevel level) const
{
    return m_logger->level() <= ToSpdlog(level);
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
    m_logger = MakeLogger(tag, threshold);
}

void DefaultLoggerImpl::Flush()
{
    m_logger->flush();
}

void DefaultLoggerImpl::SetThreshold(LogLevel threshold)
{
    m_logger->set_level(ToSpdlog(threshold));
}

}  // namespace tvo::logger
