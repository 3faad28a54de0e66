#pragma once

#include <cstddef>

namespace platform::tests {

/// How often `operator new` has run on the calling thread, in a program with this counter.
std::size_t AllocationsOfThisThread();

/// From now on `operator new` fails, on every thread.
void RefuseMemory();

}  // namespace platform::tests
