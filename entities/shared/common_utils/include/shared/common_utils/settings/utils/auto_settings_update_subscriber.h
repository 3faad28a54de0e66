#pragma once

#include <memory>

#include <component/nvl/path.h>
#include <component/settings_manager/i_settings_manager.h>

namespace vdi::common_utils::settings::utils {

/// A subscription for the life of an object.
class AutoSettingsUpdateSubscriber final
{
public:
    /// @throws zin::CheckResultFailedException  the subscription is refused
    AutoSettingsUpdateSubscriber(
        std::shared_ptr<settings_manager::ISettingsUpdateSubscriber> subscriber,
        const nvl::Path& path,
        std::shared_ptr<settings_manager::ISettingsUpdateObserver> observer);

    /// Waits for a running observer. A failure is logged.
    ~AutoSettingsUpdateSubscriber();

    AutoSettingsUpdateSubscriber(const AutoSettingsUpdateSubscriber&) = delete;
    AutoSettingsUpdateSubscriber& operator=(const AutoSettingsUpdateSubscriber&) = delete;

private:
    const std::shared_ptr<settings_manager::ISettingsUpdateSubscriber> m_subscriber;
    settings_manager::SubscriptionId m_sid = 0;
};

}  // namespace vdi::common_utils::settings::utils
