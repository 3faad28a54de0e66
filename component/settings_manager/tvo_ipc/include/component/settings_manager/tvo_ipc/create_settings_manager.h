#pragma once

#include <memory>

#include <component/settings_manager/i_settings_manager.h>
#include <component/settings_manager/tvo_ipc/config.h>

namespace settings_manager::ipc {

/// Connects to a settings service, with a patience of five minutes besides the limit given while
/// the service is not there, and registers for its updates. Proxies of one service share one
/// callback thread. A proxy whose service has died stays dead.
/// @param manager  left alone on failure
/// @returns 0, or `UnspecifiedError` after one line in the log
/// @note The last proxy of a service waits at its end for an observer that is running.
int CreateSettingsManager(const SettingsManagerCmConfig& config,
                          std::shared_ptr<ISettingsManager>& manager);

/// The same for static connections, without patience.
int CreateSettingsManager(const SettingsManagerConfig& config,
                          std::shared_ptr<ISettingsManager>& manager);

}  // namespace settings_manager::ipc
