#include "caller_pool.h"

namespace soak {

void CallerPool::Start(std::uint32_t number)
{
    const support::Process::Command command{TVO_SOAK_CALLER, {std::to_string(number)}, {}, {}};
    m_callers[number].process = std::make_unique<support::Process>(command);
}

void CallerPool::Kill(std::uint32_t number)
{
    if (const auto caller = m_callers.find(number); caller != m_callers.end())
    {
        caller->second.process->Kill();
    }
}

std::optional<Report> CallerPool::Take()
{
    for (auto& [number, caller] : m_callers)
    {
        const bool runs = caller.process->Runs();
        if (const std::string told = caller.process->Output(); caller.taken < told.size())
        {
            return Report{static_cast<Event>(told[caller.taken++]), number};
        }
        if (!runs)
        {
            const Report report{caller.process->ExitStatus() == 0 ? Event::Ended : Event::Killed,
                                number};
            m_callers.erase(number);
            return report;
        }
    }
    return std::nullopt;
}

}  // namespace soak
