#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include <component/app_manager/tvo_ipc/control_records.h>

namespace tvoctl {

/// For people: the name with its state, and below it what there is to tell.
std::vector<std::string> StatusLines(const std::string& name,
                                     const app_manager::control::ApplicationStatus& status);

/// Has all members always; null for what there is not.
nlohmann::json StatusJson(const std::string& name,
                          const app_manager::control::ApplicationStatus& status);

}  // namespace tvoctl
