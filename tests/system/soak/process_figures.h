#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>

#include <sys/types.h>

namespace soak {

/// What a process holds and has used up, as the kernel tells it.
struct ProcessFigures
{
    std::size_t residentKiB = 0;  ///< without buffers
    std::size_t bufferKiB = 0;    ///< shared memory, which is what windows are drawn in
    std::size_t proportionalKiB = 0;
    std::size_t descriptors = 0;
    /// Time on a processor of each thread, by id and name.
    std::map<std::pair<pid_t, std::string>, std::chrono::nanoseconds> threads;

    [[nodiscard]] std::chrono::nanoseconds Time() const;
};

/// @throws std::runtime_error if the process has gone
[[nodiscard]] ProcessFigures ReadFigures(pid_t process);

std::ostream& operator<<(std::ostream& out, const ProcessFigures& figures);

}  // namespace soak
