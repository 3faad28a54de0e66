#include <cstdint>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/settings_manager/tvo_ipc/create_settings_manager.h>
#include <component/settings_manager/tvo_ipc/service_names.h>
#include <shared/common_utils/settings/create_settings_manager.h>

namespace vdi::common_utils::settings {

using settings_manager::ISettingsManager;

namespace {

namespace service_names = settings_manager::service_names;

constexpr std::uint32_t ConnectTimeoutMs = 60000;

int Create(const char* service, std::shared_ptr<ISettingsManager>& manager)
{
    TVO_LOG_INFO("Connecting to {} settings manager", service);
    return settings_manager::ipc::CreateSettingsManager(
        settings_manager::ipc::SettingsManagerCmConfig{service, ConnectTimeoutMs, 0}, manager);
}

}  // namespace

int CreateSecretSettingsManagerPersistent(std::shared_ptr<ISettingsManager>& manager)
{
    return Create(service_names::SecretPersistent, manager);
}

int CreateRdpSettingsManagerPersistent(std::shared_ptr<ISettingsManager>& manager)
{
    return Create(service_names::RdpPersistent, manager);
}

int CreateMerloSettingsManagerPersistent(std::shared_ptr<ISettingsManager>& manager)
{
    return Create(service_names::MerloPersistent, manager);
}

int CreateWebSettingsManagerPersistent(std::shared_ptr<ISettingsManager>& manager)
{
    return Create(service_names::WebPersistent, manager);
}

int CreateUpdateSettingsManagerPersistent(std::shared_ptr<ISettingsManager>& manager)
{
    return Create(service_names::UpdatePersistent, manager);
}

int CreateSettingsManagerNonPersistent(std::shared_ptr<ISettingsManager>& manager)
{
    return Create(service_names::NonPersistent, manager);
}

int CreateSettingsManagerPersistent(std::shared_ptr<ISettingsManager>& manager)
{
    return Create(service_names::Persistent, manager);
}

std::shared_ptr<ISettingsManager> CreateSettingsManagerPersistent()
{
    std::shared_ptr<ISettingsManager> manager;
    ZIN_CHECK_RESULT(CreateSettingsManagerPersistent(manager),
                     "Failed to create Persistent Settings Manager");
    return manager;
}

}  // namespace vdi::common_utils::settings
