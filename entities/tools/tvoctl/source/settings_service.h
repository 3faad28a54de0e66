#pragma once

#include <chrono>
#include <memory>
#include <string>

#include <component/settings_manager/i_settings_manager.h>

namespace tvoctl {

/// Connects to a settings service of the terminal.
/// @param patience  how long the service may take to appear
/// @throws Failure  NoService
std::shared_ptr<settings_manager::ISettingsManager> ConnectSettingsService(
    const std::string& server,
    std::chrono::milliseconds patience);

}  // namespace tvoctl
