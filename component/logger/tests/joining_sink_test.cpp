#include "joining_sink.h"

#include <chrono>
#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>
#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/ostream_sink.h>

#include "escape.h"

namespace {

using namespace std::chrono_literals;
using tvo::logger::JoiningSink;

class JoiningSinkTest : public ::testing::Test
{
protected:
    JoiningSinkTest() : m_sink(std::make_shared<spdlog::sinks::ostream_sink_st>(m_written))
    {
        m_sink.set_formatter(std::make_unique<spdlog::pattern_formatter>(
            "%# %v", spdlog::pattern_time_type::local, "\n"));
    }

    void Log(const std::string& text, std::chrono::seconds at = 0s, int line = 1)
    {
        m_sink.log(spdlog::details::log_msg(spdlog::log_clock::time_point(at),
                                            spdlog::source_loc("file", line, "function"),
                                            "tag",
                                            spdlog::level::info,
                                            text));
    }

    std::ostringstream m_written;
    JoiningSink m_sink;
};

}  // namespace

TEST_F(JoiningSinkTest, JoinsEqualLinesUntilAnotherComes)
{
    Log("a");
    Log("a");
    Log("a", 0s, 2);
    Log("b");
    Log("b");
    Log("b");
    EXPECT_EQ(m_written.str(), "1 a\n1 the last line came 1 more time\n2 a\n1 b\n");
    m_written.str("");
    m_sink.flush();
    m_sink.flush();
    EXPECT_EQ(m_written.str(), "1 the last line came 2 more times\n");
}

TEST_F(JoiningSinkTest, ReportsALastingRepetitionFromTimeToTime)
{
    Log("a", 0s);
    for (int second = 1; second <= 25; ++second)
    {
        Log("a", std::chrono::seconds(second));
    }
    EXPECT_EQ(m_written.str(),
              "1 a\n1 the last line came 10 more times\n1 the last line came 10 more times\n");
}

TEST(Escape, KnowsPlainTextsByTheirBytes)
{
    // Every byte at every place of texts that end within and at the end of a word.
    for (std::size_t length = 1; length <= 17; ++length)
    {
        for (std::size_t place = 0; place < length; ++place)
        {
            for (int byte = 0; byte < 256; ++byte)
            {
                std::string text(length, 'a');
                text[place] = static_cast<char>(byte);
                ASSERT_EQ(tvo::logger::IsPlainAscii(text), byte >= ' ' && byte <= '~')
                    << byte << " at " << place << " of " << length;
            }
        }
    }
    EXPECT_TRUE(tvo::logger::IsPlainAscii(""));
}
