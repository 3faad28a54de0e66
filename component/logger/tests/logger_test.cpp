#include <atomic>
#include <cstdlib>
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

}  // namespace

TEST(Logger, MakesOneWholeLineOfAnyMessage)
{
    const std::string written = WrittenBy(
        LogLevel::Info,
        []
        {
            TVO_LOG_DEBUG("not written");
            TVO_LOG_WARNING("value {}", 5);
            TVO_LOG_AS(LogLevel::Error,
                       "OtherName",
                       "a\n2026-01-01 [info] forged\r\x1b[2J\t\x7f \xC2\x9B \xE2\x80\xAE \xFF "
                       "\xD0\x94");
        });
    const std::size_t end = written.find('\n') + 1;
    EXPECT_THAT(written.substr(0, end),
                ::testing::MatchesRegex(
                    "[0-9-]+ [0-9:.]+ \\[warning\\] \\[TAG\\] \\[[0-9]+\\] "
                    "\\[[^]]*component/logger/tests/logger_test.cpp:[0-9]+\\] operator\\(\\): "
                    "value 5\n"));
    EXPECT_THAT(written.substr(end),
                ::testing::EndsWith(" OtherName: a\\n2026-01-01 [info] forged\\r\\x1b[2J\\t\\x7f "
                                    "\\u{9b} \\u{202e} \\xff \xD0\x94\n"));
    EXPECT_EQ(written.find('\n', end), written.size() - 1);
}

TEST(Logger, TakesTheThresholdFromTheEnvironment)
{
    std::string written;
    for (const auto& [value, lowest] : {std::pair{"0", LogLevel::Trace},
                                        {"debug", LogLevel::Debug},
                                        {"ERROR", LogLevel::Error},
                                        {"6", LogLevel::Off},
                                        {"7", LogLevel::Info},
                                        {"", LogLevel::Info},
                                        {"infos", LogLevel::Info}})
    {
        setenv("TVO_LOG_LEVEL", value, 1);
        const auto check = [lowest = lowest]
        {
            for (int level = 0; level < static_cast<int>(LogLevel::Off); ++level)
            {
                EXPECT_EQ(tvo::logger::IsEnabled(static_cast<LogLevel>(level)),
                          level >= static_cast<int>(lowest));
            }
        };
        written = WrittenBy(LogLevel::Info, check);
    }
    unsetenv("TVO_LOG_LEVEL");
    EXPECT_THAT(written, ::testing::HasSubstr("TVO_LOG_LEVEL is no level: infos"));
}

TEST(Logger, CountsLevelsAboveOffAsOff)
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

TEST(Logger, DoesNotEvaluateSuppressedLines)
{
    const RecordingLogger recorder;
    TVOLogger::RootLogger().Implementation().SetThreshold(LogLevel::Info);
    int evaluated = 0;
    const auto argument = [&evaluated]
    {
        return ++evaluated;
    };
    TVO_LOG_DEBUG("{}", argument());
    TVO_LOG(LogLevel::Off, "{}", argument());
    TVO_LOG(static_cast<LogLevel>(7), "{}", argument());
    EXPECT_EQ(evaluated, 0);
    TVO_LOG_INFO("{} {}", argument(), std::pair<int, std::string>(-5, "text"));
    EXPECT_TRUE(recorder.Contains(LogLevel::Info, "1 [-5, text]"));
    EXPECT_EQ(recorder.Lines().size(), 1U);
}

TEST(Logger, SurvivesReplacementWhileAnotherThreadLogs)
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
