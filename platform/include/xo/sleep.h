#pragma once

#include <cstdint>

/// Sleeps for at least so many milliseconds, signals notwithstanding.
void XoSleep(std::uint32_t milliseconds);
