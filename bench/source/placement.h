#pragma once

#include <sched.h>

#include "contender.h"

namespace tvo::bench {

/// Keeps the calling thread, and what it starts, on the row's processors while this object lives.
class Placement
{
public:
    explicit Placement(Processors processors);
    ~Placement();
    Placement(const Placement&) = delete;
    Placement& operator=(const Placement&) = delete;

private:
    cpu_set_t m_before{};
};

}  // namespace tvo::bench
