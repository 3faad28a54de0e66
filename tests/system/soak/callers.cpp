#include "callers.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace soak {

void Callers::Start(std::uint32_t number)
{
    const support::Process::Command command{TVO_SOAK_CALLER, {std::to_string(number)}, {}, {}};
    m_alive[number].process = std::make_unique<support::Process>(command);
}

void Callers::Kill(std::uint32_t number)
{
    if (const auto caller = m_alive.find(number); caller != m_alive.end())
    {
        caller->second.killed = true;
        caller->second.process->Kill();
    }
}

void Callers::Press(std::uint32_t number, Event meant)
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

void Callers::EndApplication()
{
    for (auto& [number, caller] : m_alive)
    {
        caller.mayFail = true;
    }
}

void Callers::TakeReports()
{
    for (auto next = m_alive.begin(); next != m_alive.end();)
    {
        auto& [number, caller] = *next;
        const bool runs = caller.process->Runs();
        for (const std::string told = caller.process->Output(); caller.taken < told.size();)
        {
            Take(number, caller, static_cast<Event>(told[caller.taken++]));
        }
        if (runs)
        {
            ++next;
            continue;
        }
        TakeEnd(number, caller);
        m_deadSincePress.insert(number);
        next = m_alive.erase(next);
    }
}

void Callers::Take(std::uint32_t number, Caller& caller, Event event)
{
    if (event == Event::Connected)
    {
        caller.connected = true;
        return;
    }
    EXPECT_FALSE(caller.answer) << "a second answer: " << number;
    caller.answer = event;
    if (event == Event::Failed)
    {
        EXPECT_TRUE(caller.mayFail) << "failed without a reason: " << number;
        ++m_sum.failed;
        return;
    }
    EXPECT_TRUE(caller.meant == event)
        << "not what was pressed: " << number << (caller.meant ? "" : ", nothing was");
    ++(event == Event::Approved ? m_sum.approved : m_sum.closed);
}

void Callers::TakeEnd(std::uint32_t number, const Caller& caller)
{
    const bool wasKilled = caller.process->ExitStatus() != 0;
    EXPECT_TRUE(wasKilled ? caller.killed : caller.answer.has_value())
        << number << (wasKilled ? " was killed by others" : " got no answer");
    m_sum.killed += wasKilled ? 1 : 0;
}

bool Callers::IsAlive(std::uint32_t number) const
{
    return m_alive.contains(number);
}

std::vector<std::uint32_t> Callers::Alive() const
{
    std::vector<std::uint32_t> numbers;
    for (const auto& [number, caller] : m_alive)
    {
        numbers.push_back(number);
    }
    return numbers;
}

bool Callers::IsAnyWaiting() const
{
    return std::ranges::any_of(
        m_alive, [](const auto& one) { return !one.second.killed && !one.second.meant; });
}

bool Callers::AreAllConnected() const
{
    return std::ranges::all_of(m_alive, [](const auto& one) { return one.second.connected; });
}

const Callers::Counts& Callers::Sum() const
{
    return m_sum;
}

}  // namespace soak
