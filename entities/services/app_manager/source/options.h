#pragma once

#include <string>

namespace app_manager::service {

struct Options
{
    std::string config;    ///< the file that says what the terminal consists of
    bool isCheck = false;  ///< read it and do nothing else
    std::string help;      ///< not empty: to be printed, and nothing else to be done
};

/// @throws common::utils::BadUse
[[nodiscard]] Options ParseOptions(int argc, const char* const* argv);

}  // namespace app_manager::service
