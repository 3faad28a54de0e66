#pragma once

#include <cstddef>

/// Fills the buffer with random bytes of the kernel.
/// @returns 0 or a negative failure code
int TvoRandomGenerate(std::size_t size, void* buffer);
