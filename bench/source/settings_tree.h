#pragma once

#include <cstddef>
#include <string>

#include <fmt/format.h>

namespace tvo::bench {

// The tree of the rows about 10,000 settings: a map of maps of strings and numbers.

inline constexpr std::size_t TreeGroups = 101;
inline constexpr std::size_t GroupLeaves = 98;
static_assert(1 + TreeGroups * (1 + GroupLeaves) == 10000);

inline std::string GroupName(std::size_t group)
{
    return fmt::format("group{:03}", group);
}

inline std::string LeafName(std::size_t leaf)
{
    return fmt::format("setting{:02}", leaf);
}

inline bool IsText(std::size_t leaf)
{
    return leaf % 2 == 0;
}

/// Trees of different rounds have no value in common.
inline std::string TextOf(std::size_t group, std::size_t leaf, int round)
{
    return fmt::format("value {} of {} in round {}", leaf, group, round);
}

inline long NumberOf(std::size_t group, std::size_t leaf, int round)
{
    return static_cast<long>(group * GroupLeaves + leaf) * 1000 + round;
}

}  // namespace tvo::bench
