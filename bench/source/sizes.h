#pragma once

#include <cstddef>

namespace tvo::bench {

// What travels in the rows about calls, the same on both sides.
inline constexpr std::size_t SmallRequestBytes = 80;
inline constexpr std::size_t SmallArenaBytes = 300;
inline constexpr std::size_t SmallReplyBytes = 32;
inline constexpr std::size_t LargeBytes = 560 * 1024;

}  // namespace tvo::bench
