#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <component/logger/tracer.h>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using trace::Tracer;
using tvo::logger::LogLevel;
using tvo::logger::testing::RecordingLogger;

std::vector<std::string> Messages(const RecordingLogger& recorder)
{
    std::vector<std::string> messages;
    for (const auto& line : recorder.Lines())
    {
        messages.push_back(line.message);
    }
    return messages;
}

}  // namespace

TEST(Tracer, WritesOpeningAndClosingLine)
{
    const RecordingLogger recorder;
    {
        Tracer tracer("[P] ", "Get", LogLevel::Debug);
        tracer.PutArguments("{}, {}", "path", 3);
        tracer.PutImpl(tracer.Arguments(), "", 1);
        tracer.LogImpl(tracer.Level(), "");
        tracer.PutResults(": {} call error: wz = {}", "Get", -11);
        tracer.SetLevel(LogLevel::Error);
    }
    EXPECT_THAT(Messages(recorder),
                ElementsAre("[P] Get(path, 3)", "[P] Get(path, 3): : Get call error: wz = -11"));
    EXPECT_EQ(recorder.Lines()[1].level, LogLevel::Error);
    EXPECT_EQ(recorder.Lines()[1].function, "LogImpl");
}

TEST(Tracer, WritesNothingWhenOffOrSuppressed)
{
    const RecordingLogger recorder;
    tvo::logger::TVOLogger::RootLogger().Implementation().SetThreshold(LogLevel::Info);
    for (const LogLevel level : {LogLevel::Off, LogLevel::Debug})
    {
        Tracer tracer("p",
                      "f",
                      level,
                      [](std::string&) -> std::string_view
                      {
                          ADD_FAILURE() << "asked for a line that is not written";
                          return {};
                      });
        tracer.LogImpl(level, "");
    }
    EXPECT_THAT(recorder.Lines(), IsEmpty());
}

TEST(Tracer, ReportsFailuresOfItsClosingLine)
{
    const RecordingLogger recorder;
    {
        const Tracer bare("p", "f", LogLevel::Debug);
        const Tracer tracer("p",
                            "f",
                            LogLevel::Debug,
                            [](std::string&) -> std::string_view
                            { throw fmt::format_error("bad format"); });
    }
    EXPECT_THAT(Messages(recorder), ElementsAre("~Tracer exception: bad format", "pf()"));
    EXPECT_EQ(recorder.Lines()[0].level, LogLevel::Error);
}
