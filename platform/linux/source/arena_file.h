#pragma once

#include <cstddef>

#include "descriptor.h"

namespace platform {

/// Makes a file in memory with these bytes that nobody can change any more.
/// @returns an empty descriptor when there are no resources for it
Descriptor MakeArenaFile(const unsigned char* bytes, std::size_t size);

/// Copies the bytes out of such a file. It is never mapped: a foreign file could shrink under us.
/// @returns null, or what is wrong with the file
const char* ReadArenaFile(const Descriptor& file, unsigned char* bytes, std::size_t size);

}  // namespace platform
