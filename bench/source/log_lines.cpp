#include "log_lines.h"

#include <mutex>

#include <benchmark/benchmark.h>
#include <spdlog/details/null_mutex.h>
#include <spdlog/logger.h>
#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/base_sink.h>

#include <component/logger/logger.h>

#include "denial.h"

namespace tvo::bench {
namespace {

using ::tvo::logger::DefaultLoggerImpl;
using ::tvo::logger::LogLevel;
using ::tvo::logger::TVOLogger;

constexpr char Tag[] = "CRT_APPR";

/// The fields of the logger's own lines.
constexpr char Layout[] = "%Y-%m-%d %H:%M:%S.%e [%l] [%n] [%t] [%@] %!: %v";

/// Composes each line and forgets it.
template <typename Mutex>
class ForgetfulSink final : public spdlog::sinks::base_sink<Mutex>
{
    void sink_it_(const spdlog::details::log_msg& message) override
    {
        spdlog::memory_buf_t line;
        spdlog::sinks::base_sink<Mutex>::formatter_->format(message, line);
        benchmark::DoNotOptimize(line.data());
    }

    void flush_() override {}
};

/// Makes lines go nowhere, as long as no other contender sets the logger up again.
void LogIntoNothing()
{
    TVOLogger::Setup(Tag,
                     LogLevel::Info,
                     std::make_unique<DefaultLoggerImpl>(
                         std::make_shared<ForgetfulSink<spdlog::details::null_mutex>>()));
}

class SuppressedLine
{
public:
    void operator()()
    {
        TVO_LOG_DEBUG("the manager has changed state {} of {}", ++m_number, Tag);
    }

private:
    int m_number = 0;
};

class VirtualCall
{
public:
    void operator()()
    {
        if (m_question->IsEnabled(1))
        {
            ++m_number;
        }
    }

private:
    std::shared_ptr<IQuestion> m_question = MakeDenial();
    int m_number = 0;
};

// No two lines in a row are equal, or they would be joined.
class WrittenLine
{
public:
    void operator()()
    {
        TVO_LOG_INFO("the manager has changed state {} of {}", ++m_number, Tag);
    }

private:
    int m_number = 0;
};

class SpdlogLine
{
public:
    SpdlogLine()
    {
        m_logger.set_formatter(std::make_unique<spdlog::pattern_formatter>(Layout));
    }

    void operator()()
    {
        m_logger.log(spdlog::source_loc(__FILE__, __LINE__, __func__),
                     spdlog::level::info,
                     "the manager has changed state {} of {}",
                     ++m_number,
                     Tag);
    }

private:
    spdlog::logger m_logger{Tag, std::make_shared<ForgetfulSink<std::mutex>>()};
    int m_number = 0;
};

}  // namespace

std::unique_ptr<Contender> MakeSuppressedLines()
{
    LogIntoNothing();
    return std::make_unique<Repeated<SuppressedLine>>();
}

std::unique_ptr<Contender> MakeVirtualCalls()
{
    return std::make_unique<Repeated<VirtualCall>>();
}

std::unique_ptr<Contender> MakeWrittenLines()
{
    LogIntoNothing();
    return std::make_unique<Repeated<WrittenLine>>();
}

std::unique_ptr<Contender> MakeSpdlogLines()
{
    return std::make_unique<Repeated<SpdlogLine>>();
}

}  // namespace tvo::bench
