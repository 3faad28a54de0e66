#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <component/logger/log_level.h>
#include <component/settings_manager/i_settings_manager.h>
#include <component/settings_manager/tvo_ipc/config.h>

#include "channel.h"
#include "settings_manager_callback.h"

namespace settings_manager::ipc {

/// The client's end of a settings service. Connected as long as it lives; a service that has died
/// gives `MediaError` for every operation. Holds no lock of its own: calls from several threads
/// queue in the transport, and wait for the service without a limit.
class SettingsManagerProxy final : public ISettingsManager,
                                   public ISettingsCreator,
                                   public ISettingsGetter,
                                   public ISettingsValueSetter,
                                   public ISettingsSetter,
                                   public ISettingsDeleter,
                                   public ISettingsUpdateSubscriber,
                                   public std::enable_shared_from_this<SettingsManagerProxy>
{
public:
    /// @throws zin::Exception, std::exception
    explicit SettingsManagerProxy(const SettingsManagerCmConfig& config);
    explicit SettingsManagerProxy(const SettingsManagerConfig& config);
    ~SettingsManagerProxy() override;

    SettingsManagerProxy(const SettingsManagerProxy&) = delete;
    SettingsManagerProxy& operator=(const SettingsManagerProxy&) = delete;

    int GetSettingsCreator(std::shared_ptr<ISettingsCreator>& creator) override;
    int GetSettingsGetter(std::shared_ptr<ISettingsGetter>& getter) override;
    int GetSettingsValueSetter(std::shared_ptr<ISettingsValueSetter>& setter) override;
    int GetSettingsSetter(std::shared_ptr<ISettingsSetter>& setter) override;
    int GetSettingsDeleter(std::shared_ptr<ISettingsDeleter>& deleter) override;
    int GetSettingsUpdateSubscriber(
        std::shared_ptr<ISettingsUpdateSubscriber>& subscriber) override;

    int CreateSetting(const nvl::Path& path, const Setting& setting) override;
    int GetAttribute(const nvl::Path& path, Attributes& attributes) const override;
    int GetSetting(const nvl::Path& path, Setting& setting) const override;
    int SetValue(const nvl::Path& path, const nvl::TValue<Setting>& value) override;
    int SetAttribute(const nvl::Path& path, const Attributes& attributes) override;
    int SetSetting(const nvl::Path& path, const Setting& setting) override;
    int DeleteSetting(const nvl::Path& path) override;

    int Subscribe(const nvl::Path& path,
                  std::shared_ptr<ISettingsUpdateObserver> observer,
                  SubscriptionId& sid) override;
    int Unsubscribe(SubscriptionId sid) override;

private:
    template <class Interface>
    int GetIface(std::shared_ptr<Interface>& iface);

    int WriteSetting(unsigned char mode,
                     const nvl::Path& path,
                     const Setting& setting,
                     std::string_view opName,
                     tvo::logger::LogLevel level);

    std::string m_logPrefix;
    Channel m_channel;
    SettingsManagerCallback& m_callback;
    SettingsManagerCallback::Iterator m_context;
};

}  // namespace settings_manager::ipc
