#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "config/child_config.h"
#include "config/config_error.h"

namespace app_manager::service {

/// Reads the children of a terminal, in the order in which they are started: services first.
/// @param programs  folder of the programs that are given by a bare file name
/// @throws ConfigError
[[nodiscard]] std::vector<ChildConfig> ReadConfig(const std::string& file,
                                                  const std::string& programs);

/// The same for the contents of a file.
[[nodiscard]] std::vector<ChildConfig> ParseConfig(std::string_view text,
                                                   const std::string& file,
                                                   const std::string& programs);

}  // namespace app_manager::service
