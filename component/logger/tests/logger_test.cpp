#include <atomic>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/logger/formatters.h>
#include <component/logger/logger.h>
#include <component/logger/testing/recording_logger.h>

namespace {

using tvo::logger::DefaultLoggerImpl;
using tvo::logger::LogLevel;
using tvo::logger::TVOLogger;
using tvo::logger::testing::RecordingLogger;

/// What a process writes to standard error under the library's own implementation.
template <class Body>
std::string WrittenBy(LogLevel threshold, Body body)
{
    DefaultLoggerImpl& former = TVOLogger::RootLogger().Implementation();
    ::testing::internal::CaptureStderr();
    TVOLogger::Setup("TAG", threshold, nullptr);
    body();
    TVOLogger::RootLogger().Implementation().Flush();
    TVOLogger::RootLogger().Use(former);
    return ::testing::internal::GetCapturedStderr();
}

class Logger : public ::testing::Test
{
protected:
    void TearDown() override
    {
        unsetenv("TVO_LOG_LEVEL");
    }
};

}  // namespace

TEST_F(Logger, WritesEveryPartOfALine)
{
    const std::string written = WrittenBy(LogLevel::Info,
                                          []
                                          {
                                              TVO_LOG_DEBUG("not written");
                                              TVO_LOG_WARNING("value {}", 5);
                                              TVO_LOG_AS(LogLevel::Error, "OtherName", "plain");
                                          });
    EXPECT_THAT(written,
                ::testing::MatchesRegex(
                    "[0-9-]+ [0-9:.]+ \\[warning\\] \\[TAG\\] \\[[0-9]+\\] "
                    "\\[[^]]*component/logger/tests/logger_test.cpp:[0-9]+\\] operator\\(\\): "
                    "value 5\n[^\n]*\\[error\\][^\n]* OtherName: plain\n"));
}

TEST_F(Logger, MakesOneLineOfAnyMessage)
{
    const std::string written = WrittenBy(
        LogLevel::Info,
        []
        {
            TVO_LOG_ERROR(
                "a\n2026-01-01 [info] forged\r\x1b[2J\t\x7f \xC2\x9B \xE2\x80\xAE \xFF \xD0\x94");
        });
    EXPECT_THAT(written,
                ::testing::EndsWith("a\\n2026-01-01 [info] forged\\r\\x1b[2J\\t\\x7f \\u{9b} "
                                    "\\u{202e} \\xff \xD0\x94\n"));
    EXPECT_EQ(written.find('\n'), written.size() - 1);
}

TEST_F(Logger, TakesTheThresholdFromTheEnvironment)
{
    const std::pair<const char*, LogLevel> rows[] = {{"0", LogLevel::Trace},
                                                     {"debug", LogLevel::Debug},
                                                     {"ERROR", LogLevel::Error},
                                                     {"6", LogLevel::Off},
                                                     {"7", LogLevel::Info},
                                                     {"", LogLevel::Info},
                                                     {"infos", LogLevel::Info}};
    std::string written;
    for (const auto& [value, lowest] : rows)
    {
        setenv("TVO_LOG_LEVEL", value, 1);
        written =
            WrittenBy(LogLevel::Info,
                      [lowest = lowest]
                      {
                          EXPECT_TRUE(tvo::logger::IsEnabled(lowest) || lowest == LogLevel::Off);
                          const auto below = static_cast<LogLevel>(static_cast<int>(lowest) - 1);
                          EXPECT_FALSE(lowest != LogLevel::Trace && tvo::logger::IsEnabled(below));
                      });
    }
    EXPECT_THAT(written, ::testing::HasSubstr("TVO_LOG_LEVEL is no level: infos"));
}

TEST_F(Logger, CountsLevelsAboveOffAsOff)
{
    DefaultLoggerImpl implementation;
    for (const LogLevel threshold : {LogLevel::Info, LogLevel::Off})
    {
        implementation.SetThreshold(threshold);
        EXPECT_TRUE(implementation.IsEnabled(LogLevel::Off));
        EXPECT_TRUE(implementation.IsEnabled(static_cast<LogLevel>(99)));
        EXPECT_EQ(implementation.IsEnabled(LogLevel::Critical), threshold == LogLevel::Info);
    }
}

TEST_F(Logger, DoesNotEvaluateSuppressedLines)
{
    RecordingLogger recorder;
    recorder.SetThreshold(LogLevel::Info);
    int evaluated = 0;
    const auto argument = [&evaluated]
    {
        return ++evaluated;
    };
    TVO_LOG_TRACE("{}", argument());
    TVO_LOG_DEBUG("{}", argument());
    TVO_LOG(LogLevel::Off, "{}", argument());
    TVO_LOG(static_cast<LogLevel>(7), "{}", argument());
    EXPECT_EQ(evaluated, 0);
    EXPECT_TRUE(recorder.Lines().empty());

    TVO_LOG_INFO("{} {}", argument(), std::pair<int, std::string>(-5, "text"));
    EXPECT_TRUE(recorder.Contains(LogLevel::Info, "1 [-5, text]"));
    EXPECT_EQ(recorder.Lines().at(0).function, "TestBody");
}

TEST_F(Logger, SurvivesReplacementWhileAnotherThreadLogs)
{
    const RecordingLogger recorder;
    std::atomic_bool isDone = false;
    std::thread writer(
        [&isDone]
        {
            while (!isDone)
            {
                TVO_LOG_INFO("line");
            }
        });
    for (int i = 0; i < 200; ++i)
    {
        const RecordingLogger nested;
        TVO_LOG_INFO("nested");
        EXPECT_TRUE(nested.Contains(LogLevel::Info, "nested"));
    }
    isDone = true;
    writer.join();
    EXPECT_FALSE(recorder.Contains(LogLevel::Info, "nested"));
}
