#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>

#include <sys/types.h>

namespace support {

/// What a process holds and has used up, as the kernel tells it.
struct ProcessFigures
{
    struct Thread
    {
        std::string name;
        std::chrono::nanoseconds time{};  ///< on a processor
        std::uint64_t waits = 0;          ///< how often it has waited for something
    };

    std::size_t residentKiB = 0;  ///< without buffers
    std::size_t bufferKiB = 0;    ///< shared memory, which is what windows are drawn in
    std::size_t descriptors = 0;
    std::map<pid_t, Thread> threads;

    // Of all threads that there are.
    [[nodiscard]] std::chrono::nanoseconds Time() const;
    [[nodiscard]] std::uint64_t Waits() const;
};

/// @throws std::runtime_error if the process has gone
[[nodiscard]] ProcessFigures ReadFigures(pid_t process);

std::ostream& operator<<(std::ostream& out, const ProcessFigures& figures);

}  // namespace support
