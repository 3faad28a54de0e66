#pragma once

#include <cstdint>

#include "xo/result.h"

/// No handle. Valid handles lie below 0xFFFFFF, since a message carries 24 bits of them.
inline constexpr std::uint32_t XoInvalidHandle = 0xFFFFFFFFU;

/// Closes a handle of any kind. Threads blocked in the object fail within 50 ms; the object itself
/// goes with its last user.
/// @returns 0, or `XoObjectGone` for a handle that is not open
int XoHandleClose(std::uint32_t handle);
