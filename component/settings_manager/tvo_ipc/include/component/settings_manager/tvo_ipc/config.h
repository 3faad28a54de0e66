#pragma once

#include <cstdint>

namespace settings_manager::ipc {

/// A service that is reached through the connection manager.
struct SettingsManagerCmConfig
{
    const char* serviceName;         ///< one of `service_names`, not empty
    std::uint32_t connectTimeoutMs;  ///< of each attempt; 0xFFFFFFFF waits without a limit
    std::uint32_t reserved;          ///< always 0
};

/// A service that is reached through static connections.
struct SettingsManagerConfig
{
    const char* callbackConnection;  ///< leads to the endpoint of `WzISMCbk`
    const char* serviceConnection;   ///< leads to the endpoints of `WzISM` and `WzISMReg`
    const char* ismEndpoint;
    const char* ismRegEndpoint;
    const char* ismCbkEndpoint;
};

}  // namespace settings_manager::ipc
