#pragma once

#include <memory>

#include <component/nvl/path.h>
#include <component/settings_manager/i_settings_manager.h>

/// What the typed settings are made with, checked.
namespace vdi::common_utils::settings::utils {

/// @throws zin::CheckFailedException  the path is empty
[[nodiscard]] nvl::Path RequirePath(nvl::Path path);

/// @throws zin::CheckFailedException  there is no manager, or it does not give what is asked for
/// @{
[[nodiscard]] std::shared_ptr<settings_manager::ISettingsGetter> RequireGetter(
    const std::shared_ptr<settings_manager::ISettingsManager>& manager);
[[nodiscard]] std::shared_ptr<settings_manager::ISettingsValueSetter> RequireValueSetter(
    const std::shared_ptr<settings_manager::ISettingsManager>& manager);
[[nodiscard]] std::shared_ptr<settings_manager::ISettingsUpdateSubscriber> RequireUpdateSubscriber(
    const std::shared_ptr<settings_manager::ISettingsManager>& manager);
/// @}

}  // namespace vdi::common_utils::settings::utils
