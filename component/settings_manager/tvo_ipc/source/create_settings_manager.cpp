#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/result_codes.h>
#include <component/plk/text.h>
#include <component/settings_manager/tvo_ipc/create_settings_manager.h>

#include "settings_manager_proxy.h"

namespace settings_manager::ipc {

namespace {

template <class Config>
int CreateSettingsManagerImpl(const Config& config, std::shared_ptr<ISettingsManager>& manager)
{
    try
    {
        manager = std::make_shared<SettingsManagerProxy>(config);
        return plk::codes::Ok;
    }
    catch (const zin::Exception& exception)
    {
        TVO_LOG_CRITICAL("Could not create settings manager proxy: {}",
                         zin::text::Cast<std::string>(exception.DisplayText()));
    }
    catch (const std::exception& exception)
    {
        TVO_LOG_CRITICAL("Could not create settings manager proxy: {}", exception.what());
    }
    return plk::codes::UnspecifiedError;
}

}  // namespace

int CreateSettingsManager(const SettingsManagerCmConfig& config,
                          std::shared_ptr<ISettingsManager>& manager)
{
    return CreateSettingsManagerImpl(config, manager);
}

int CreateSettingsManager(const SettingsManagerConfig& config,
                          std::shared_ptr<ISettingsManager>& manager)
{
    return CreateSettingsManagerImpl(config, manager);
}

}  // namespace settings_manager::ipc
