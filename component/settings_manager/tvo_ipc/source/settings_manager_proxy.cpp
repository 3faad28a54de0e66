#include "settings_manager_proxy.h"

#include <cstdint>
#include <stdexcept>
#include <utility>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/result_codes.h>
#include <component/settings_manager/tvo_ipc/service_names.h>
#include <tvo/random.h>

namespace settings_manager::ipc {

namespace {

std::string MakePrefix()
{
    std::uint32_t number = 0;
    if (TvoRandomGenerate(sizeof(number), &number) != 0)
    {
        throw std::runtime_error("TvoRandomGenerate() fail");
    }
    return fmt::format("[SM_P] {:04X} ", number % 65535);
}

Channel ConnectTo(const SettingsManagerCmConfig& config, const std::string& prefix)
{
    const char* const service = config.serviceName != nullptr ? config.serviceName : "";
    TVO_LOG_DEBUG("{}{}: {}.{} ({} ms)",
                  prefix,
                  "SettingsManagerProxy",
                  service,
                  service_names::Ism,
                  PrintableTimeout(config.connectTimeoutMs));
    if (*service == '\0')
    {
        throw zin::CheckFailedException("component/plk/ipc/proxy", __LINE__);
    }
    return Channel::Connect(service, service_names::Ism, config.connectTimeoutMs);
}

Channel ConnectTo(const SettingsManagerConfig& config, const std::string& prefix)
{
    TVO_LOG_DEBUG("{}{}: {}<{}>",
                  prefix,
                  "SettingsManagerProxy",
                  config.serviceConnection,
                  config.ismEndpoint);
    return Channel::Connect(config.serviceConnection, config.ismEndpoint);
}

}  // namespace

SettingsManagerProxy::SettingsManagerProxy(const SettingsManagerCmConfig& config)
    : m_logPrefix(MakePrefix()),
      m_channel(ConnectTo(config, m_logPrefix)),
      m_callback(aux::impl::ProxyLibStaticInit()),
      m_context(m_callback.RegCallback(m_logPrefix, config))
{}

SettingsManagerProxy::SettingsManagerProxy(const SettingsManagerConfig& config)
    : m_logPrefix(MakePrefix()),
      m_channel(ConnectTo(config, m_logPrefix)),
      m_callback(aux::impl::ProxyLibStaticInit()),
      m_context(m_callback.RegCallback(m_logPrefix, config))
{}

SettingsManagerProxy::~SettingsManagerProxy()
{
    TVO_LOG_DEBUG("{}{}", m_logPrefix, "~SettingsManagerProxy");
    m_callback.UnregCallback(m_logPrefix, m_context);
}

template <class Interface>
int SettingsManagerProxy::GetIface(std::shared_ptr<Interface>& iface)
{
    try
    {
        iface = shared_from_this();
        return plk::codes::Ok;
    }
    catch (const std::bad_weak_ptr& exception)
    {
        TVO_LOG_ERROR("{} Could not get interface: {}", m_logPrefix, exception.what());
        return plk::codes::InterfaceNotSupported;
    }
}

int SettingsManagerProxy::GetSettingsCreator(std::shared_ptr<ISettingsCreator>& creator)
{
    return GetIface(creator);
}

int SettingsManagerProxy::GetSettingsGetter(std::shared_ptr<ISettingsGetter>& getter)
{
    return GetIface(getter);
}

int SettingsManagerProxy::GetSettingsValueSetter(std::shared_ptr<ISettingsValueSetter>& setter)
{
    return GetIface(setter);
}

int SettingsManagerProxy::GetSettingsSetter(std::shared_ptr<ISettingsSetter>& setter)
{
    return GetIface(setter);
}

int SettingsManagerProxy::GetSettingsDeleter(std::shared_ptr<ISettingsDeleter>& deleter)
{
    return GetIface(deleter);
}

int SettingsManagerProxy::GetSettingsUpdateSubscriber(
    std::shared_ptr<ISettingsUpdateSubscriber>& subscriber)
{
    return GetIface(subscriber);
}

int SettingsManagerProxy::Subscribe(const nvl::Path& path,
                                    std::shared_ptr<ISettingsUpdateObserver> observer,
                                    SubscriptionId& sid)
{
    return m_callback.Subscribe(m_logPrefix, m_context, path, std::move(observer), sid);
}

int SettingsManagerProxy::Unsubscribe(SubscriptionId sid)
{
    return m_callback.Unsubscribe(m_logPrefix, m_context, sid);
}

}  // namespace settings_manager::ipc
