#pragma once

#include <cstddef>

namespace platform::tests {

/// How often `operator new` has run, in a program with this counter.
std::size_t Allocations();

/// From now on `operator new` fails, on every thread.
void RefuseMemory();

}  // namespace platform::tests
