#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <support/manager_process.h>

#include "leftovers.h"

namespace support {

namespace {

using app_manager::control::State;

void Check(bool holds, const std::string& what, Process& process)
{
    if (!holds)
    {
        throw std::runtime_error(what + ":\n" + process.Errors());
    }
}

void PrepareDatabase(const std::filesystem::path& file, const std::string& language)
{
    Process service({TVO_SETTINGS_MANAGER, {"--database", file}, {}, {}});
    Check(service.WaitForText("is ready"), "The settings service is not ready", service);
    ManagerProcess::SetLanguage(language);
    kill(service.Id(), SIGTERM);
    Check(service.ExitStatus() == 0, "The settings service does not end", service);
}

Process::Command Prepare(const std::filesystem::path& folder,
                         const std::string& language,
                         const std::map<std::string, std::string>& environment,
                         const std::string& applications)
{
    const auto database = folder / "settings.db";
    const auto configuration = folder / "terminal.toml";
    PrepareDatabase(database, language);
    std::ofstream(configuration) << "[[service]]\nname = \"settings\"\n"
                                 << "command = [\"settings_manager\", \"--database\", " << database
                                 << "]\nprovides = \"vx.settings_manager.PSmgr\"\n"
                                 << "restart_delay = 0.05\n"
                                 << applications;
    return {TVO_APP_MANAGER, {"--config", configuration}, environment, {}};
}

}  // namespace

ManagerProcess::ManagerProcess(std::filesystem::path folder,
                               const std::string& language,
                               const std::map<std::string, std::string>& environment,
                               const std::string& applications)
    : m_folder(std::move(folder)),
      m_program(Prepare(m_folder, language, environment, applications)),
      m_control(app_manager::control::ConnectControl(Patience))
{
    WaitUntilReady("settings");
}

ManagerProcess::~ManagerProcess()
{
    std::vector<app_manager::control::Entry> children;
    try
    {
        children = m_control->List();
    }
    catch (const std::runtime_error&)
    {
        // It has gone already.
    }
    m_program.Kill();
    for (const auto& child : children)
    {
        // The kernel kills them, which takes a moment; only then are their names free.
        std::error_code gone;
        const auto program = "/proc/" + std::to_string(child.pid) + "/exe";
        static_cast<void>(
            Comes([&] { return std::filesystem::read_symlink(program, gone).empty(); }));
    }
}

Process& ManagerProcess::Program()
{
    return m_program;
}

std::string ManagerProcess::Log()
{
    return m_program.Errors();
}

ManagerProcess::Status ManagerProcess::StatusOf(const std::string& name) const
{
    return m_control->Status(name);
}

void ManagerProcess::Send(const std::string& name, app_manager::control::Command command) const
{
    m_control->Send(name, command);
}

ManagerProcess::Status ManagerProcess::WaitFor(const std::string& name,
                                               const std::function<bool(const Status&)>& accepts)
{
    Status status;
    const auto isLikeThat = [&]
    {
        // Takes in what has been written, lest anybody wait for room in the pipe.
        Check(m_program.Runs(), "The manager has gone", m_program);
        status = StatusOf(name);
        return accepts(status);
    };
    Check(Comes(isLikeThat), "The status of " + name + " is not as it should be", m_program);
    return status;
}

ManagerProcess::Status ManagerProcess::WaitUntilReady(const std::string& name, pid_t former)
{
    return WaitFor(
        name,
        [former](const Status& status)
        { return status.state == State::Ready && static_cast<pid_t>(status.pid) != former; });
}

void ManagerProcess::SetLanguage(const std::string& language)
{
    Process set({TVO_TVOCTL,
                 {"settings", "set", "--create", "profiles/locale/language", language},
                 {},
                 {}});
    Check(set.ExitStatus() == 0, "The language cannot be set", set);
}

std::string ManagerProcess::End()
{
    kill(m_program.Id(), SIGTERM);
    const int status = m_program.ExitStatus();
    const std::string left = FindLeftovers(RuntimeFolder(), m_folder);
    return status == 0 && left.empty()
               ? ""
               : "status " + std::to_string(status) + ", left: " + left + '\n' + Log();
}

std::filesystem::path RuntimeFolder()
{
    const char* folder = std::getenv("TVO_RUNTIME_DIR");
    return folder != nullptr ? folder : throw std::runtime_error("TVO_RUNTIME_DIR is not set");
}

}  // namespace support
