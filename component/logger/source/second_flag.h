#pragma once

#include <array>
#include <cstddef>
#include <ctime>
#include <memory>

#include <spdlog/pattern_formatter.h>

namespace tvo::logger {

/// Date and time down to the second, composed once a second: for most lines it is one copy instead
/// of six numbers.
class SecondFlag final : public spdlog::custom_flag_formatter
{
public:
    void format(const spdlog::details::log_msg& message,
                const std::tm& time,
                spdlog::memory_buf_t& line) override;

    std::unique_ptr<spdlog::custom_flag_formatter> clone() const override;

private:
    std::time_t m_second = -1;
    std::array<char, sizeof "YYYYY-MM-DD HH:MM:SS"> m_text{};
    std::size_t m_size = 0;
};

}  // namespace tvo::logger
