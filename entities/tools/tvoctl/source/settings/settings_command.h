#pragma once

#include <chrono>
#include <memory>
#include <string>

#include <component/nvl/path.h>
#include <component/settings_manager/tvo_ipc/service_names.h>

#include "../command.h"
#include "store.h"

namespace tvoctl {

/// What all commands on settings have in common.
struct SettingsOptions
{
    std::string server = settings_manager::service_names::Persistent;
    unsigned patienceSeconds = 0;
};

class SettingsCommand : public ICommand
{
public:
    SettingsCommand(CLI::App& settings,
                    std::shared_ptr<const SettingsOptions> options,
                    const char* name,
                    const char* description);

    [[nodiscard]] bool IsChosen() const final;

    void Run(Environment& environment) final;

protected:
    [[nodiscard]] CLI::App& App() const;

    /// Declares PATH, or [PATH] that is the root when it is missing.
    void AddPath();
    void AddOptionalPath();

    [[nodiscard]] const std::string& Server() const;
    [[nodiscard]] std::chrono::milliseconds Patience() const;

    /// The store that the command works on. It is left open at the end of the program.
    [[nodiscard]] Store Open(Environment& environment) const;

private:
    /// @param path  the root for a command that takes none
    virtual void RunOn(Environment& environment, const nvl::Path& path) = 0;

    CLI::App* m_app;
    std::shared_ptr<const SettingsOptions> m_options;
    std::string m_path = "/";
};

using OptionsPtr = std::shared_ptr<const SettingsOptions>;

std::unique_ptr<ICommand> MakeGet(CLI::App& settings, OptionsPtr options);
std::unique_ptr<ICommand> MakeSet(CLI::App& settings, OptionsPtr options);
std::unique_ptr<ICommand> MakeCreate(CLI::App& settings, OptionsPtr options);
std::unique_ptr<ICommand> MakeDelete(CLI::App& settings, OptionsPtr options);
std::unique_ptr<ICommand> MakeAttr(CLI::App& settings, OptionsPtr options);
std::unique_ptr<ICommand> MakeList(CLI::App& settings, OptionsPtr options);
std::unique_ptr<ICommand> MakeWatch(CLI::App& settings, OptionsPtr options);
std::unique_ptr<ICommand> MakeDump(CLI::App& settings, OptionsPtr options);
std::unique_ptr<ICommand> MakeLoad(CLI::App& settings, OptionsPtr options);

}  // namespace tvoctl
