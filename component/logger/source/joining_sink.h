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

    /// What is kept of the line written last, in texts of its own: those that come in only point to
    /// theirs. Its strings are filled again and again, so a line costs no memory.
    struct LastLine
    {
        [[nodiscard]] bool Equals(const Message& message) const;
        void Take(const Message& message);
        [[nodiscard]] Message ToMessage(spdlog::log_clock::time_point time,
                                        spdlog::string_view_t text) const;

        spdlog::level::level_enum level = spdlog::level::off;
        int sourceLine = 0;
        std::size_t thread = 0;
        std::string tag;
        std::string file;
        std::string function;
        std::string payload;
    };

    void Write(const Message& message);
    void WriteRepeats();

    std::shared_ptr<spdlog::sinks::sink> m_target;
    LastLine m_last;
    std::size_t m_repeats = 0;
    spdlog::log_clock::time_point m_lastRepeat;
    spdlog::log_clock::time_point m_lastWritten;
};

}  // namespace tvo::logger
