#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

#include <component/app_manager/tvo_ipc/control_client.h>
#include <component/settings_manager/i_settings_manager.h>

#include "output.h"
#include "services/published_service.h"

namespace tvoctl {

/// Connects to a store of settings.
/// @param patience  how long the service may take to appear
/// @throws Failure  NoService
using ConnectSettings = std::function<std::shared_ptr<settings_manager::ISettingsManager>(
    const std::string& server,
    std::chrono::milliseconds patience)>;

/// Connects to the application manager.
/// @param patience  how long it may take to appear
/// @throws app_manager::control::NoManager
using ConnectManager = std::function<std::unique_ptr<app_manager::control::IControlClient>(
    std::chrono::milliseconds patience)>;

/// What the commands have around them.
struct Environment
{
    ConnectSettings connectSettings = {};
    ConnectManager connectManager = {};
    ListServices listServices = {};
    /// From the call on, SIGINT and SIGTERM end the program with 0, behind a whole line of output.
    std::function<void()> endOnSignals;
    /// Waits until a watched service is to be looked at again.
    /// @returns false to watch no longer
    std::function<bool()> keepWatching;
    std::istream& in;
    Output& out;
    bool isJson = false;
};

}  // namespace tvoctl
