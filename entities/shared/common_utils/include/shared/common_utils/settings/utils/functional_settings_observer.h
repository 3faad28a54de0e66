#pragma once

#include <functional>

#include <component/settings_manager/i_settings_manager.h>

namespace vdi::common_utils::settings::utils {

/// An observer that is a function.
class FunctionalSettingsObserver final : public settings_manager::ISettingsUpdateObserver
{
public:
    using Callback = std::function<int(const nvl::Path& path, unsigned char update)>;

    /// @throws zin::CheckFailedException  the function is empty
    explicit FunctionalSettingsObserver(Callback callback);

    int OnSettingsUpdate(const nvl::Path& path, unsigned char update) override;

private:
    const Callback m_callback;
};

}  // namespace vdi::common_utils::settings::utils
