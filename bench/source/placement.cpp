#include "placement.h"

namespace tvo::bench {
namespace {

/// The last one: interrupts tend to be served by the first.
int LastProcessor(const cpu_set_t& set)
{
    int cpu = CPU_SETSIZE - 1;
    while (cpu > 0 && !CPU_ISSET(cpu, &set))
    {
        --cpu;
    }
    return cpu;
}

}  // namespace

Placement::Placement(Processors processors)
{
    ::sched_getaffinity(0, sizeof m_before, &m_before);
    if (processors == Processors::One)
    {
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(LastProcessor(m_before), &one);
        ::sched_setaffinity(0, sizeof one, &one);
    }
}

Placement::~Placement()
{
    ::sched_setaffinity(0, sizeof m_before, &m_before);
}

}  // namespace tvo::bench
