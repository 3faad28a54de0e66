#include "joining_sink.h"

#include <chrono>
#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>
#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/ostream_sink.h>

#include "escape.h"

TEST(JoiningSink, JoinsEqualLinesUntilAnotherComesOrTimeHasPassed)
{
    std::ostringstream written;
    tvo::logger::JoiningSink sink(std::make_shared<spdlog::sinks::ostream_sink_st>(written));
    sink.set_formatter(std::make_unique<spdlog::pattern_formatter>(
        "%# %v", spdlog::pattern_time_type::local, "\n"));
    const auto log = [&](const char* text, int second = 0, int line = 1)
    {
        sink.log({spdlog::log_clock::time_point(std::chrono::seconds(second)),
                  {"file", line, "function"},
                  "tag",
                  spdlog::level::info,
                  text});
    };
    log("a");
    log("a");
    log("a", 0, 2);
    log("b");
    log("b");
    log("b");
    EXPECT_EQ(written.str(), "1 a\n1 the last line came 1 more time\n2 a\n1 b\n");
    written.str("");
    sink.flush();
    sink.flush();
    EXPECT_EQ(written.str(), "1 the last line came 2 more times\n");
    written.str("");
    for (int second = 0; second <= 25; ++second)
    {
        log("a", second);
    }
    EXPECT_EQ(written.str(),
              "1 a\n1 the last line came 10 more times\n1 the last line came 10 more times\n");
}

TEST(Escape, KnowsPlainTextsByTheirBytes)
{
    // Every byte at every place of texts shorter than a word, and of several.
    for (const std::size_t length : {1U, 7U, 8U, 17U})
    {
        for (std::size_t at = 0; at < length * 256; ++at)
        {
            std::string text(length, 'a');
            text[at / 256] = static_cast<char>(at);
            ASSERT_EQ(tvo::logger::IsPlainAscii(text), at % 256 >= ' ' && at % 256 <= '~') << at;
        }
    }
}
