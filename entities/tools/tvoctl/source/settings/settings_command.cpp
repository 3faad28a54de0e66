#include "settings_command.h"

#include <utility>

#include "path_argument.h"

namespace tvoctl {

SettingsCommand::SettingsCommand(CLI::App& settings,
                                 OptionsPtr options,
                                 const char* name,
                                 const char* description)
    : m_app(settings.add_subcommand(name, description)), m_options(std::move(options))
{}

bool SettingsCommand::IsChosen() const
{
    return m_app->parsed();
}

void SettingsCommand::Run(Environment& environment)
{
    RunOn(environment, ParsePath(m_path));
}

CLI::App& SettingsCommand::App() const
{
    return *m_app;
}

void SettingsCommand::AddPath()
{
    m_app->add_option("PATH", m_path, "the setting, as in profiles/locale/language")->required();
}

void SettingsCommand::AddOptionalPath()
{
    m_app->add_option("PATH", m_path, "the setting, / when not given");
}

const std::string& SettingsCommand::Server() const
{
    return m_options->server;
}

std::chrono::milliseconds SettingsCommand::Patience() const
{
    return std::chrono::seconds(m_options->patienceSeconds);
}

Store SettingsCommand::Open(Environment& environment) const
{
    // The parts that the store takes keep the manager alive.
    return Store(*environment.connectSettings(Server(), Patience()));
}

}  // namespace tvoctl
