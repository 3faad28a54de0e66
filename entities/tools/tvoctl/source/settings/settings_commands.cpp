#include "settings_commands.h"

#include <iterator>
#include <memory>
#include <set>
#include <string>

#include "../patience.h"
#include "settings_command.h"

namespace tvoctl {
namespace {

CLI::App& DeclareGroup(CLI::App& app, SettingsOptions& options)
{
    namespace names = settings_manager::service_names;
    CLI::App* const group = app.add_subcommand("settings", "Reads, writes and watches settings.");
    group->require_subcommand(1);
    group->add_option("--server", options.server, "store of settings")
        ->type_name("NAME")
        ->capture_default_str()
        ->check(CLI::IsMember(std::set<std::string>(std::begin(names::All), std::end(names::All))));
    AddPatience(*group, options.patienceSeconds);
    return *group;
}

}  // namespace

void AddSettingsCommands(CLI::App& app, Commands& commands)
{
    const auto options = std::make_shared<SettingsOptions>();
    CLI::App& group = DeclareGroup(app, *options);
    for (const auto make : {MakeGet,
                            MakeSet,
                            MakeCreate,
                            MakeDelete,
                            MakeAttr,
                            MakeList,
                            MakeWatch,
                            MakeDump,
                            MakeLoad})
    {
        commands.push_back(make(group, options));
    }
}

}  // namespace tvoctl
