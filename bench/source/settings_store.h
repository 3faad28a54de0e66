#pragma once

#include <memory>

#include <component/nvl/path.h>
#include <component/settings_manager/i_settings_manager.h>
#include <support/process.h>

#include "store_folder.h"

namespace tvo::bench {

/// Throws when an operation on settings has failed.
/// @throws std::runtime_error
void CheckCode(int code, const char* what);

/// A connection to the settings service of this run. Keeps the log to what is wrong.
/// @throws std::runtime_error
std::shared_ptr<settings_manager::ISettingsManager> ConnectToSettings();

/// What all rows write below, and what those about one string do.
nvl::Path SettingsPath();
nvl::Path TextPath();

/// A tree of `settings_tree.h`.
settings_manager::Setting MakeTree(int round);

/// A settings service with a new database, on the processors of this process, and a connection.
class SettingsStore
{
public:
    /// @param setting  stands at `SettingsPath` at first
    /// @throws std::runtime_error
    explicit SettingsStore(const settings_manager::Setting& setting, Medium medium = Medium::Disk);

    template <class Interface>
    std::shared_ptr<Interface> Get(
        int (settings_manager::ISettingsManager::*getter)(std::shared_ptr<Interface>&)) const
    {
        std::shared_ptr<Interface> result;
        CheckCode(((*m_manager).*getter)(result), "getting an interface");
        return result;
    }

private:
    const StoreFolder m_folder;
    support::Process m_service;
    std::shared_ptr<settings_manager::ISettingsManager> m_manager;
};

}  // namespace tvo::bench
