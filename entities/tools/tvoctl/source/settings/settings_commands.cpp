#include "settings_commands.h"

#include <iterator>
#include <memory>
#include <set>
#include <string>

#include "settings_command.h"

namespace tvoctl {
namespace {

constexpr unsigned MaxPatienceSeconds = 3600;

CLI::App& DeclareGroup(CLI::App& app, SettingsOptions& options)
{
    namespace names = settings_manager::service_names;
    CLI::App* const group = app.add_subcommand("settings", "Reads, writes and watches settings.");
    group->require_subcommand(1);
    group->add_option("--server", options.server, "store of settings")
        ->type_name("NAME")
        ->capture_default_str()
        ->check(CLI::IsMember(std::set<std::string>(std::begin(names::All), std::end(names::All))));
    group->add_option("--wait", options.patienceSeconds, "time for the service to appear")
        ->type_name("SECONDS")
        ->capture_default_str()
        ->check(CLI::Range(0U, MaxPatienceSeconds));
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
