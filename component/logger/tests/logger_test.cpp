#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

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
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 1);
}

TEST_F(Logger, TakesTheThresholdFromTheEnvironment)
{
    struct Row
    {
        const char* value;
        LogLevel lowest;
    };
    const Row rows[] = {{"0", LogLevel::Trace},
                        {"debug", LogLevel::Debug},
                        {"ERROR", LogLevel::Error},
                        {"5", LogLevel::Critical},
                        {"off", LogLevel::Off},
                        {"7", LogLevel::Info},
                        {"", LogLevel::Info},
                        {"infos", LogLevel::Info}};
    for (const Row& row : rows)
    {
        setenv("TVO_LOG_LEVEL", row.value, 1);
        WrittenBy(LogLevel::Info,
                  [&row]
                  {
                      for (int level = 0; level < 6; ++level)
                      {
                          EXPECT_EQ(tvo::logger::IsEnabled(static_cast<LogLevel>(level)),
                                    level >= static_cast<int>(row.lowest))
                              << row.value << ' ' << level;
                      }
                  });
    }
}

TEST_F(Logger, SaysThatTheVariableIsWrong)
{
    setenv("TVO_LOG_LEVEL", "loud", 1);
    EXPECT_THAT(WrittenBy(LogLevel::Info, [] {}),
                ::testing::HasSubstr("TVO_LOG_LEVEL is no level: loud"));
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

    TVO_LOG_INFO("{}", argument());
    EXPECT_EQ(evaluated, 1);
    EXPECT_TRUE(recorder.Contains(LogLevel::Info, "1"));
    EXPECT_EQ(recorder.Lines().at(0).function, "TestBody");
}

TEST_F(Logger, FormatsCodeAndText)
{
    const RecordingLogger recorder;
    TVO_LOG_ERROR("failed: {}", std::pair<int, std::string>(-5, "text"));
    EXPECT_TRUE(recorder.Contains(LogLevel::Error, "failed: [-5, text]"));
}

TEST_F(Logger, SurvivesReplacementWhileOthersLog)
{
    const RecordingLogger recorder;
    std::atomic_bool isDone = false;
    std::vector<std::thread> writers;
    for (int i = 0; i < 2; ++i)
    {
        writers.emplace_back(
            [&isDone]
            {
                while (!isDone)
                {
                    TVO_LOG_INFO("line");
                }
            });
    }
    for (int i = 0; i < 200; ++i)
    {
        const RecordingLogger nested;
        TVO_LOG_INFO("nested");
        EXPECT_TRUE(nested.Contains(LogLevel::Info, "nested"));
    }
    isDone = true;
    for (std::thread& writer : writers)
    {
        writer.join();
    }
    EXPECT_FALSE(recorder.Contains(LogLevel::Info, "nested"));
}
