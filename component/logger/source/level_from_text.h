#pragma once

#include <optional>
#include <string_view>

#include <component/logger/log_level.h>

namespace tvo::logger {

/// @returns the level of a number from 0 to 6 or of a level's name in any case
std::optional<LogLevel> LevelFromText(std::string_view text);

}  // namespace tvo::logger
