#pragma once

#include <string>

namespace settings_manager::service {

struct Options
{
    std::string server;    ///< the name under which clients find the service
    std::string database;  ///< empty: nothing is kept
    std::string help;      ///< not empty: to be printed, and nothing else to be done
};

/// @throws common::utils::BadUse
[[nodiscard]] Options ParseOptions(int argc, const char* const* argv);

}  // namespace settings_manager::service
