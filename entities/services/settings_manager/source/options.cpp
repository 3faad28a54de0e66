#include "options.h"

#include <iterator>
#include <set>

#include <component/settings_manager/tvo_ipc/service_names.h>
#include <shared/common/utils/command_line.h>

namespace settings_manager::service {
namespace {

constexpr const char* Description =
    "Keeps a store of settings and tells its readers of every change.";

constexpr const char* Footer =
    "A database is made where there is none. SIGTERM ends the service in order.\n"
    "Exit status: 0 ended in order, 1 the service can not run, 2 wrong use.";

void Declare(CLI::App& app, Options& options, bool& isInMemory)
{
    const std::set<std::string> names(std::begin(service_names::All), std::end(service_names::All));
    app.add_option("--server", options.server, "name under which clients find the store")
        ->check(CLI::IsMember(names))
        ->capture_default_str();
    auto* const store = app.add_option_group("store", "where the settings are kept");
    store->add_option("--database", options.database, "file that keeps them")->type_name("FILE");
    store->add_flag("--memory", isInMemory, "nowhere: they end with the service");
    store->require_option(1);
    app.footer(Footer);
}

}  // namespace

Options ParseOptions(int argc, const char* const* argv)
{
    Options options;
    options.server = service_names::Persistent;
    bool isInMemory = false;
    CLI::App app(Description, "settings_manager");
    Declare(app, options, isInMemory);
    options.help = ::common::utils::ParseCommandLine(app, argc, argv);
    if (options.help.empty() && !isInMemory && options.database.empty())
    {
        throw ::common::utils::BadUse("--database needs the name of a file");
    }
    return options;
}

}  // namespace settings_manager::service
