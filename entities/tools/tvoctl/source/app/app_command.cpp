#include "app_command.h"

#include <utility>

#include <fmt/format.h>

#include "../failure.h"

namespace tvoctl {

using app_manager::control::NoManager;
using app_manager::control::Refusal;

AppCommand::AppCommand(CLI::App& app,
                       AppOptionsPtr options,
                       const char* name,
                       const char* description)
    : m_app(app.add_subcommand(name, description)), m_options(std::move(options))
{}

bool AppCommand::IsChosen() const
{
    return m_app->parsed();
}

void AppCommand::Run(Environment& environment)
try
{
    const auto manager =
        environment.connectManager(std::chrono::seconds(m_options->patienceSeconds));
    RunOn(*manager, environment);
}
catch (const Refusal& refusal)
{
    const std::string subject = m_name.empty() ? "" : fmt::format("'{}': ", m_name);
    throw Failure(ExitStatus::Refused, subject + refusal.what());
}
catch (const NoManager& absence)
{
    throw Failure(ExitStatus::NoService, absence.what());
}

void AppCommand::AddName()
{
    DeclareName("application or service, as in its configuration").required();
}

void AppCommand::AddOptionalName()
{
    DeclareName("application or service; all when not given");
}

CLI::Option& AppCommand::DeclareName(const char* description)
{
    return *m_app->add_option("NAME", m_name, description)
                ->check(
                    [](const std::string& name)
                    { return name.empty() ? std::string("a name is not empty") : std::string(); });
}

}  // namespace tvoctl
