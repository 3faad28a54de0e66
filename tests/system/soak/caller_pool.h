#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

#include <sys/types.h>

#include "caller_messages.h"

namespace soak {

/// The callers, each a process of its own that asks once about the address of its number. The
/// destructor kills those that still run.
class CallerPool final
{
public:
    /// @param runtimeFolder  TVO_RUNTIME_DIR of the callers
    /// @throws std::system_error
    explicit CallerPool(const std::filesystem::path& runtimeFolder);
    ~CallerPool();

    CallerPool(const CallerPool&) = delete;
    CallerPool& operator=(const CallerPool&) = delete;

    void Start(std::uint32_t number);

    /// Kills with SIGKILL; its end is reported. Nothing happens to one that has ended.
    void Kill(std::uint32_t number);

    /// @returns the next report, in the order in which things happened at each caller; nothing if
    /// none comes within the limit. @throws std::runtime_error if nobody keeps the callers any
    /// more.
    [[nodiscard]] std::optional<Report> Take(std::chrono::milliseconds limit);

private:
    void Send(Order order, std::uint32_t number) const;

    int m_socket = -1;
    pid_t m_keeper = -1;
};

}  // namespace soak
