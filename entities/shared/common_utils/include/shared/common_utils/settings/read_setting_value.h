#pragma once

#include <memory>
#include <utility>

#include <component/nvl/path.h>
#include <component/settings_manager/i_settings_manager.h>
#include <component/settings_manager/sm_utils.h>
#include <shared/common_utils/settings/utils/collaborators.h>

namespace vdi::common_utils::settings {

/// Reads a setting once.
/// @returns its value, or `defaultValue` where the service has nothing usable
/// @throws zin::CheckFailedException  there is no manager, or it cannot read
template <class T>
[[nodiscard]] T ReadSettingValue(
    const std::shared_ptr<settings_manager::ISettingsManager>& settingsManager,
    const nvl::Path& path,
    T defaultValue)
{
    const auto getter = utils::RequireGetter(settingsManager);
    return settings_manager::GetSettingValue<T>(*getter, path, std::move(defaultValue));
}

}  // namespace vdi::common_utils::settings
