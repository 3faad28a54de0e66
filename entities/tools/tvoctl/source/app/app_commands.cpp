#include "app_commands.h"

#include <memory>

#include "../patience.h"
#include "app_command.h"

namespace tvoctl {

void AddAppCommands(CLI::App& app, Commands& commands)
{
    const auto options = std::make_shared<AppOptions>();
    CLI::App& group = *app.add_subcommand("app", "Tells of the applications and commands them.");
    group.require_subcommand(1);
    AddPatience(group, options->patienceSeconds);
    for (const auto make :
         {MakeAppList, MakeAppStatus, MakeAppShow, MakeAppHide, MakeAppClose, MakeAppRestart})
    {
        commands.push_back(make(group, options));
    }
}

}  // namespace tvoctl
