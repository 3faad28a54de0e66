#include <string>
#include <utility>

#include "../json_text.h"
#include "app_command.h"

namespace tvoctl {
namespace {

using app_manager::control::Command;

/// Hands a command to the manager and is done once it is accepted: an application may take its
/// time, and `status` tells how far it is.
class Send final : public AppCommand
{
public:
    Send(CLI::App& app,
         AppOptionsPtr options,
         const char* verb,
         const char* description,
         Command command)
        : AppCommand(app, std::move(options), verb, description), m_verb(verb), m_command(command)
    {
        AddName();
    }

private:
    void RunOn(app_manager::control::IControlClient& manager, Environment& environment) override
    {
        manager.Send(Name(), m_command);
        if (environment.isJson)
        {
            environment.out.Print(JsonLine({{"done", m_verb}, {"name", Name()}}));
        }
    }

    const char* m_verb;
    Command m_command;
};

}  // namespace

std::unique_ptr<ICommand> MakeAppShow(CLI::App& app, AppOptionsPtr options)
{
    return std::make_unique<Send>(
        app, std::move(options), "show", "Has an application show its window.", Command::Show);
}

std::unique_ptr<ICommand> MakeAppHide(CLI::App& app, AppOptionsPtr options)
{
    return std::make_unique<Send>(
        app, std::move(options), "hide", "Has an application hide its window.", Command::Hide);
}

std::unique_ptr<ICommand> MakeAppClose(CLI::App& app, AppOptionsPtr options)
{
    return std::make_unique<Send>(app,
                                  std::move(options),
                                  "close",
                                  "Ends an application until a restart is asked for.",
                                  Command::Close);
}

std::unique_ptr<ICommand> MakeAppRestart(CLI::App& app, AppOptionsPtr options)
{
    return std::make_unique<Send>(app,
                                  std::move(options),
                                  "restart",
                                  "Ends an application or a service, if it runs, and starts it.",
                                  Command::Restart);
}

}  // namespace tvoctl
