#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>

namespace platform {

/// Tells which lines about troublesome processes are written: of those about one process the first,
/// and then one an interval with the number of those kept back. May be used from any thread.
class OffenceFilter final
{
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::seconds Interval{10};

    /// @returns how many lines about the process were kept back since the last one, or nothing when
    ///          this one is kept back too
    std::optional<unsigned> Admit(std::uint32_t pid, Clock::time_point now);

private:
    struct Row
    {
        std::uint32_t pid = 0;
        unsigned keptBack = 0;
        Clock::time_point written;  ///< the epoch: the row is free
    };

    std::mutex m_mutex;
    std::array<Row, 32> m_rows;  ///< the least recently written makes way
};

}  // namespace platform
