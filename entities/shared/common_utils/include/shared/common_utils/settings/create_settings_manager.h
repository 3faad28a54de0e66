#pragma once

#include <memory>

#include <component/settings_manager/i_settings_manager.h>

/// Connections to the terminal's settings services, one service a store. A service that is not
/// there yet is waited for, up to about five minutes. What is lost later is not connected anew.
namespace vdi::common_utils::settings {

/// @returns 0, or a negative result code; `manager` keeps its value then
int CreateSecretSettingsManagerPersistent(
    std::shared_ptr<settings_manager::ISettingsManager>& manager);
int CreateRdpSettingsManagerPersistent(
    std::shared_ptr<settings_manager::ISettingsManager>& manager);
int CreateMerloSettingsManagerPersistent(
    std::shared_ptr<settings_manager::ISettingsManager>& manager);
int CreateWebSettingsManagerPersistent(
    std::shared_ptr<settings_manager::ISettingsManager>& manager);
int CreateUpdateSettingsManagerPersistent(
    std::shared_ptr<settings_manager::ISettingsManager>& manager);

/// For settings that are forgotten when the terminal is switched off.
int CreateSettingsManagerNonPersistent(
    std::shared_ptr<settings_manager::ISettingsManager>& manager);

/// For the settings of the terminal itself.
int CreateSettingsManagerPersistent(std::shared_ptr<settings_manager::ISettingsManager>& manager);

/// @throws zin::CheckResultFailedException  with the negative result code
[[nodiscard]] std::shared_ptr<settings_manager::ISettingsManager> CreateSettingsManagerPersistent();

}  // namespace vdi::common_utils::settings
