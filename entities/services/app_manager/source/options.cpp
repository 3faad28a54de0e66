#include "options.h"

#include <shared/common/utils/command_line.h>

namespace app_manager::service {
namespace {

constexpr const char* Description =
    "Starts the programs of the terminal, watches over them and ends them.";

constexpr const char* Footer =
    "SIGTERM ends all in order, a second one at once; SIGHUP reads the file again.\n"
    "Exit status: 0 ended in order, 1 the manager can not run, 2 wrong use or configuration.";

}  // namespace

Options ParseOptions(int argc, const char* const* argv)
{
    Options options;
    CLI::App app(Description, "app_manager");
    app.add_option("--config", options.config, "what the terminal consists of (TOML)")
        ->type_name("FILE")
        ->required();
    app.add_flag("--check", options.isCheck, "only say whether the file can be used");
    app.footer(Footer);
    options.help = ::common::utils::ParseCommandLine(app, argc, argv);
    return options;
}

}  // namespace app_manager::service
