#pragma once

#include <map>
#include <memory>
#include <optional>

#include <support/process.h>

#include "caller_messages.h"

namespace soak {

struct Report
{
    Event event = Event::Failed;
    std::uint32_t number = 0;
};

/// The callers, each a process of its own that asks once about the address of its number.
class CallerPool final
{
public:
    void Start(std::uint32_t number);

    /// Kills with SIGKILL; its end is reported. Nothing happens to one that has ended.
    void Kill(std::uint32_t number);

    /// @returns the next report, in the order in which things happened at each caller; nothing if
    /// there is none.
    [[nodiscard]] std::optional<Report> Take();

private:
    struct Caller
    {
        std::unique_ptr<support::Process> process;
        std::size_t taken = 0;  ///< of what it has told
    };

    std::map<std::uint32_t, Caller> m_callers;
};

}  // namespace soak
