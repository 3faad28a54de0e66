#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>

#include <spdlog/sinks/base_sink.h>

namespace tvo::logger {

/// Stands before another sink: escapes what would break a line, and joins equal lines that follow
/// each other. The first is written at once; of the others only the count, when another line comes,
/// at `flush`, or when they have gone on for `RepeatInterval`. Lines are equal when level, source
/// and message are, whichever thread wrote them.
class JoiningSink final : public spdlog::sinks::base_sink<std::mutex>
{
public:
    static constexpr std::chrono::seconds RepeatInterval{10};

    explicit JoiningSink(std::shared_ptr<spdlog::sinks::sink> target);

private:
    using Message = spdlog::details::log_msg;

    void sink_it_(const Message& message) override;
    void flush_() override;
    void set_formatter_(std::unique_ptr<spdlog::formatter> formatter) override;

    /// A line with texts of its own; the messages that come in only point to theirs.
    struct Line
    {
        explicit Line(const Message& message);

        [[nodiscard]] bool Equals(const Line& other) const;
        [[nodiscard]] Message ToMessage(spdlog::string_view_t text) const;

        Message fields;
        std::string tag;
        std::string file;
        std::string function;
        std::string payload;
    };

    void WriteRepeats();

    std::shared_ptr<spdlog::sinks::sink> m_target;
    std::unique_ptr<Line> m_last;
    std::size_t m_repeats = 0;
    spdlog::log_clock::time_point m_lastRepeat;
    spdlog::log_clock::time_point m_lastWritten;
};

}  // namespace tvo::logger
