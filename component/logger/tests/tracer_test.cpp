#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/logger/tracer.h>

using trace::Tracer;
using tvo::logger::LogLevel;
using tvo::logger::TVOLogger;

TEST(Tracer, WritesNothingWhenSuppressedAndReportsAFailedLine)
{
    const tvo::logger::testing::RecordingLogger recorder;
    TVOLogger::RootLogger().Implementation().SetThreshold(LogLevel::Info);
    const auto fail = [](std::string&) -> std::string_view
    {
        throw fmt::format_error("asked for its text");
    };
    for (const LogLevel level : {LogLevel::Off, LogLevel::Debug})
    {
        Tracer("p", "f", level, fail).LogImpl(level, "");
    }
    EXPECT_TRUE(recorder.Lines().empty());
    Tracer("p", "f", LogLevel::Info, fail);
    EXPECT_EQ(recorder.Lines().size(), 1U);
    EXPECT_TRUE(recorder.Contains(LogLevel::Error, "~Tracer exception: asked for its text"));
}
