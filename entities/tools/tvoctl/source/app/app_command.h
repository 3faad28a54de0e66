#pragma once

#include <chrono>
#include <memory>
#include <string>

#include <component/app_manager/tvo_ipc/control_client.h>

#include "../command.h"

namespace tvoctl {

/// What all commands on applications have in common.
struct AppOptions
{
    unsigned patienceSeconds = 0;
};

using AppOptionsPtr = std::shared_ptr<const AppOptions>;

class AppCommand : public ICommand
{
public:
    AppCommand(CLI::App& app, AppOptionsPtr options, const char* name, const char* description);

    [[nodiscard]] bool IsChosen() const final;

    /// Connects, and says it in one line when the manager refuses or goes away.
    void Run(Environment& environment) final;

protected:
    /// Declares NAME, or [NAME] that is empty when it is missing.
    void AddName();
    void AddOptionalName();

    [[nodiscard]] const std::string& Name() const
    {
        return m_name;
    }

private:
    /// @throws app_manager::control::Refusal, app_manager::control::NoManager, Failure
    virtual void RunOn(app_manager::control::IControlClient& manager, Environment& environment) = 0;

    CLI::Option& DeclareName(const char* description);

    CLI::App* m_app;
    AppOptionsPtr m_options;
    std::string m_name;
};

std::unique_ptr<ICommand> MakeAppList(CLI::App& app, AppOptionsPtr options);
std::unique_ptr<ICommand> MakeAppStatus(CLI::App& app, AppOptionsPtr options);

/// `show`, `hide`, `close` and `restart`.
std::unique_ptr<ICommand> MakeAppShow(CLI::App& app, AppOptionsPtr options);
std::unique_ptr<ICommand> MakeAppHide(CLI::App& app, AppOptionsPtr options);
std::unique_ptr<ICommand> MakeAppClose(CLI::App& app, AppOptionsPtr options);
std::unique_ptr<ICommand> MakeAppRestart(CLI::App& app, AppOptionsPtr options);

}  // namespace tvoctl
