#include "ledger.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace soak {

void Ledger::Start(std::uint32_t number)
{
    m_alive[number] = {};
}

void Ledger::Kill(std::uint32_t number)
{
    m_alive.at(number).killed = true;
}

void Ledger::Press(std::uint32_t number, Event meant)
{
    const auto caller = m_alive.find(number);
    if (caller == m_alive.end())
    {
        // A request is taken up when the one before has been answered, and not for the dead.
        EXPECT_TRUE(m_deadSincePress.contains(number)) << "a dialog for nobody: " << number;
        ++m_sum.forNobody;
    }
    else
    {
        EXPECT_FALSE(caller->second.meant) << "asked again: " << number;
        caller->second.meant = meant;
    }
    m_deadSincePress.clear();
}

void Ledger::EndApplication()
{
    for (auto& [number, caller] : m_alive)
    {
        caller.mayFail = true;
    }
}

void Ledger::Take(const Report& report)
{
    const auto caller = m_alive.find(report.number);
    if (caller == m_alive.end())
    {
        ADD_FAILURE() << "a report of nobody: " << report.number;
        return;
    }
    switch (report.event)
    {
        case Event::Connected:
            caller->second.connected = true;
            break;
        case Event::Approved:
        case Event::Closed:
        case Event::Failed:
            TakeAnswer(caller->second, report);
            break;
        case Event::Ended:
        case Event::Killed:
            TakeEnd(caller->second, report);
            m_alive.erase(caller);
            m_deadSincePress.insert(report.number);
            break;
    }
}

void Ledger::TakeAnswer(Caller& caller, const Report& report)
{
    EXPECT_FALSE(caller.answer) << "a second answer: " << report.number;
    caller.answer = report.event;
    if (report.event == Event::Failed)
    {
        EXPECT_TRUE(caller.mayFail) << "failed without a reason: " << report.number;
        ++m_sum.failed;
        return;
    }
    EXPECT_TRUE(caller.meant == report.event)
        << "not what was pressed: " << report.number << (caller.meant ? "" : ", nothing was");
    ++(report.event == Event::Approved ? m_sum.approved : m_sum.closed);
}

void Ledger::TakeEnd(const Caller& caller, const Report& report)
{
    EXPECT_TRUE(report.event != Event::Killed || caller.killed) << report.number;
    EXPECT_TRUE(report.event != Event::Ended || caller.answer) << "no answer: " << report.number;
    m_sum.killed += report.event == Event::Killed ? 1 : 0;
}

bool Ledger::IsAlive(std::uint32_t number) const
{
    return m_alive.contains(number);
}

std::vector<std::uint32_t> Ledger::Alive() const
{
    std::vector<std::uint32_t> numbers;
    for (const auto& [number, caller] : m_alive)
    {
        numbers.push_back(number);
    }
    return numbers;
}

bool Ledger::IsAnyWaiting() const
{
    return std::ranges::any_of(
        m_alive, [](const auto& one) { return !one.second.killed && !one.second.meant; });
}

bool Ledger::AreAllConnected() const
{
    return std::ranges::all_of(m_alive, [](const auto& one) { return one.second.connected; });
}

const Ledger::Counts& Ledger::Sum() const
{
    return m_sum;
}

}  // namespace soak
