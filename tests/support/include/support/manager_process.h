#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include <component/app_manager/tvo_ipc/control_client.h>
#include <support/process.h>

namespace support {

/// app_manager with the settings service, whose database knows the language from the start, and
/// the applications that are told. All find each other in TVO_RUNTIME_DIR of the test, which is to
/// stay the same for the life of the test's process. Paused restarts come soon.
class ManagerProcess final
{
public:
    using Status = app_manager::control::ApplicationStatus;

    /// @param folder        for the configuration and the database
    /// @param language      as in the setting, for instance "en-US"
    /// @param environment   what all of them find beside what the test does
    /// @param applications  the tables behind that of the service "settings"
    /// @throws std::runtime_error if the settings service does not become ready
    ManagerProcess(std::filesystem::path folder,
                   const std::string& language,
                   const std::map<std::string, std::string>& environment = {},
                   const std::string& applications = {});

    /// Kills it, and returns when its children have gone as well.
    ~ManagerProcess();

    ManagerProcess(const ManagerProcess&) = delete;
    ManagerProcess& operator=(const ManagerProcess&) = delete;

    [[nodiscard]] Process& Program();

    /// What it and its children have written.
    [[nodiscard]] std::string Log();

    [[nodiscard]] Status StatusOf(const std::string& name) const;

    /// Sends the command of that sort.
    void Send(const std::string& name, app_manager::control::Command command) const;

    /// Waits until a program's status is like that. @returns it
    /// @throws std::runtime_error, with the log, when the time is up
    Status WaitFor(const std::string& name, const std::function<bool(const Status&)>& accepts);

    /// Waits until it is ready in another process than the former.
    Status WaitUntilReady(const std::string& name, pid_t former = 0);

    /// @throws std::runtime_error, with what tvoctl wrote, if the service refuses
    static void SetLanguage(const std::string& language);

    /// Asks for the end of everything. @returns what is wrong with it, and what has been left of
    /// processes, sockets and locks: nothing
    [[nodiscard]] std::string End();

private:
    std::filesystem::path m_folder;
    Process m_program;
    std::unique_ptr<app_manager::control::IControlClient> m_control;
};

/// TVO_RUNTIME_DIR of the test.
[[nodiscard]] std::filesystem::path RuntimeFolder();

}  // namespace support
