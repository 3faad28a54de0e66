#pragma once

#include <functional>
#include <memory>
#include <mutex>

#include <component/nvl/path.h>
#include <component/settings_manager/i_settings_manager.h>
#include <shared/common_utils/settings/utils/auto_settings_update_subscriber.h>

namespace vdi::common_utils::settings::utils {

/// The callback of a reader: as long as one is registered, subscribed to the changes at and below a
/// path. Any thread may register and unregister, but not from inside the callback.
class SettingCallback final
{
public:
    /// @param subscriber  not null
    SettingCallback(nvl::Path path,
                    std::shared_ptr<settings_manager::ISettingsUpdateSubscriber> subscriber);

    /// Waits for a running callback.
    ~SettingCallback();

    SettingCallback(const SettingCallback&) = delete;
    SettingCallback& operator=(const SettingCallback&) = delete;

    /// Has the callback called after changes of values, perhaps already before this returns. It
    /// takes the place of one that is registered already; the change between the two is reported to
    /// one of them.
    /// @throws zin::CheckResultFailedException  the subscription is refused; all stays as it was
    void RegisterCallback(std::function<void()> callback);

    /// Waits for a running callback; afterwards it is not called any more.
    void UnregisterCallback();

private:
    int OnUpdate(const nvl::Path& changed, unsigned char update) noexcept;
    void Call() const;
    void Subscribe();
    void SetCallback(std::function<void()> callback);

    const nvl::Path m_path;
    const std::shared_ptr<settings_manager::ISettingsUpdateSubscriber> m_subscriber;

    // Serialises what registers and unregisters, and guards the subscription.
    std::mutex m_registrationMutex;
    std::unique_ptr<AutoSettingsUpdateSubscriber> m_subscription;

    // Guards the callback alone. An observer takes it while the end of its subscription may wait
    // for that observer, so nobody who ends a subscription may hold it. Who writes the callback
    // holds both mutexes, so one is enough to read it.
    mutable std::mutex m_callbackMutex;
    std::function<void()> m_callback;
};

}  // namespace vdi::common_utils::settings::utils
