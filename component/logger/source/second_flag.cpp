#include "second_flag.h"

namespace tvo::logger {

void SecondFlag::format(const spdlog::details::log_msg& message,
                        const std::tm& /*time*/,
                        spdlog::memory_buf_t& line)
{
    const std::time_t second = spdlog::log_clock::to_time_t(message.time);
    if (second != m_second)
    {
        // The formatter breaks the time down only for flags of its own.
        std::tm time{};
        ::localtime_r(&second, &time);
        m_second = second;
        m_size = std::strftime(m_text.data(), m_text.size(), "%Y-%m-%d %H:%M:%S", &time);
    }
    line.append(m_text.data(), m_text.data() + m_size);
}

std::unique_ptr<spdlog::custom_flag_formatter> SecondFlag::clone() const
{
    return std::make_unique<SecondFlag>();
}

}  // namespace tvo::logger
