#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "caller_pool.h"

namespace soak {

/// Who asked, what was pressed for whom, and what came of it. Every report is held against that;
/// what must not be is a failure of the test.
class Ledger final
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

    // What the driver does.
    void Start(std::uint32_t number);
    void Kill(std::uint32_t number);
    void Press(std::uint32_t number, Event meant);
    /// From here on those who wait may fail, and may not get a verdict that nobody pressed.
    void EndApplication();

    void Take(const Report& report);

    [[nodiscard]] bool IsAlive(std::uint32_t number) const;
    [[nodiscard]] std::vector<std::uint32_t> Alive() const;
    /// Whether a dialog is still to come for anybody.
    [[nodiscard]] bool IsAnyWaiting() const;
    [[nodiscard]] bool AreAllConnected() const;
    [[nodiscard]] const Counts& Sum() const;

private:
    struct Caller
    {
        bool connected = false;
        bool killed = false;
        bool mayFail = false;
        std::optional<Event> meant;
        std::optional<Event> answer;
    };

    void TakeAnswer(Caller& caller, const Report& report);
    void TakeEnd(const Caller& caller, const Report& report);

    std::map<std::uint32_t, Caller> m_alive;
    std::set<std::uint32_t> m_deadSincePress;
    Counts m_sum;
};

}  // namespace soak
