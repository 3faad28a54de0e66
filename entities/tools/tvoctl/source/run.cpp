#include "run.h"

#include <algorithm>
#include <exception>
#include <ostream>

#include "app/app_commands.h"
#include "command.h"
#include "failure.h"
#include "printable.h"
#include "services/services.h"
#include "settings/settings_commands.h"

namespace tvoctl {
namespace {

constexpr const char* Description = "Looks into and steers a running terminal.";

constexpr const char* Footer =
    "Exit status: 0 done, 1 refused, 2 wrong use or input, 4 no service.";

void RunChosen(int argc, const char* const* argv, Environment& environment)
{
    CLI::App app(Description, "tvoctl");
    app.footer(Footer);
    app.require_subcommand(1);
    app.fallthrough();
    app.add_flag("--json", environment.isJson, "print results as JSON, one line each");
    Commands commands;
    AddServicesCommand(app, commands);
    AddAppCommands(app, commands);
    AddSettingsCommands(app, commands);
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::CallForHelp&)
    {
        environment.out.Print(app.help());
        return;
    }
    catch (const CLI::ParseError& error)
    {
        throw Failure(ExitStatus::BadUse, error.what());
    }
    const auto chosen = std::find_if(
        commands.begin(), commands.end(), [](const auto& command) { return command->IsChosen(); });
    (*chosen)->Run(environment);
}

int Report(std::ostream& err, ExitStatus status, const char* text)
{
    err << "tvoctl: " << Printable(text) << std::endl;
    return static_cast<int>(status);
}

}  // namespace

int Run(int argc, const char* const* argv, Environment& environment, std::ostream& err)
try
{
    RunChosen(argc, argv, environment);
    return static_cast<int>(ExitStatus::Done);
}
catch (const Failure& failure)
{
    return Report(err, failure.Status(), failure.what());
}
catch (const std::exception& exception)
{
    return Report(err, ExitStatus::Refused, exception.what());
}

}  // namespace tvoctl
