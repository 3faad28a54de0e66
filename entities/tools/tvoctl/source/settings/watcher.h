#pragma once

#include <atomic>
#include <chrono>
#include <exception>
#include <memory>
#include <optional>
#include <string>

#include <component/nvl/path.h>
#include <component/settings_manager/setting.h>

#include "../environment.h"
#include "tree_place.h"
#include "watch_session.h"

namespace tvoctl {

/// Prints what happens at and below a setting, a line or more for each change. Keeps in mind what
/// it has printed, so that it can say what has changed while there was no connection.
class Watcher
{
public:
    Watcher(Environment& environment, std::string server, nvl::Path path, bool printsInitial);

    /// Connects, and again whenever the service has gone, until the environment ends it.
    /// @param patience  for the first connection
    /// @throws Failure
    void Run(std::chrono::milliseconds patience);

private:
    void Connect(std::chrono::milliseconds patience);
    void ConnectAgain();
    [[nodiscard]] bool IsAlive() const;
    void PrintStart(const std::optional<settings_manager::Setting>& now);

    void OnUpdate(const Store& store, const nvl::Path& path, unsigned char kinds) noexcept;
    void PrintUpdate(const Store& store, const nvl::Path& path, unsigned char kinds);
    void PrintDeletion(const nvl::Path& path);
    [[nodiscard]] Levels WayTo(const nvl::Path& path) const;

    Environment& m_environment;
    const std::string m_server;
    const nvl::Path m_path;
    const bool m_printsInitial;
    bool m_wasConnected = false;

    /// What has been printed. Belongs to the callback thread while the session's gate is open.
    std::optional<settings_manager::Setting> m_known;

    std::exception_ptr m_failure;  ///< of the callback thread, complete when `m_hasFailed`
    std::atomic<bool> m_hasFailed = false;

    std::unique_ptr<WatchSession> m_session;  ///< the last member: its end ends the updates
};

}  // namespace tvoctl
