#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include <support/process.h>

#include "caller_messages.h"

namespace soak {

/// The callers, each a process of its own that asks once about the address of its number, with what
/// was pressed for whom. Every report is held against that; what must not be is a failure of the
/// test.
class Callers final
{
public:
    struct Counts
    {
        int approved = 0;
        int closed = 0;
        int failed = 0;
        int killed = 0;
        int forNobody = 0;  ///< dialogs answered whose caller was dead
    };

    void Start(std::uint32_t number);
    /// Kills with SIGKILL; its end is reported. Nothing happens to one that has ended.
    void Kill(std::uint32_t number);
    /// Notes that the dialog of that number is being answered.
    void Press(std::uint32_t number, Event meant);
    /// From here on those who wait may fail, and may not get a verdict that nobody pressed.
    void EndApplication();

    /// Takes all reports that are there.
    void TakeReports();

    [[nodiscard]] bool IsAlive(std::uint32_t number) const;
    [[nodiscard]] std::vector<std::uint32_t> Alive() const;
    /// Whether a dialog is still to come for anybody.
    [[nodiscard]] bool IsAnyWaiting() const;
    [[nodiscard]] bool AreAllConnected() const;
    [[nodiscard]] const Counts& Sum() const;

private:
    struct Caller
    {
        std::unique_ptr<support::Process> process;
        std::size_t taken = 0;  ///< of what it has told
        bool connected = false;
        bool killed = false;
        bool mayFail = false;
        std::optional<Event> meant;
        std::optional<Event> answer;
    };

    void Take(std::uint32_t number, Caller& caller, Event event);
    void TakeEnd(std::uint32_t number, const Caller& caller);

    std::map<std::uint32_t, Caller> m_alive;
    std::set<std::uint32_t> m_deadSincePress;
    Counts m_sum;
};

}  // namespace soak
