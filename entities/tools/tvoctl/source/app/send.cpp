#include <string>
#include <utility>

#include <component/app_manager/tvo_ipc/control_words.h>

#include "../json_text.h"
#include "app_command.h"

namespace tvoctl {
namespace {

using app_manager::control::Command;
using app_manager::control::CommandWord;

/// Hands a command to the manager and is done once it is accepted: an application may take its
/// time, and `status` tells how far it is.
class Send final : public AppCommand
{
public:
    Send(CLI::App& app, AppOptionsPtr options, Command command, const char* description)
        : AppCommand(app, std::move(options), CommandWord(command), description), m_command(command)
    {
        AddName();
    }

private:
    void RunOn(app_manager::control::IControlClient& manager, Environment& environment) override
    {
        manager.Send(Name(), m_command);
        if (environment.isJson)
        {
            environment.out.Print(JsonLine({{"done", CommandWord(m_command)}, {"name", Name()}}));
        }
    }

    const Command m_command;
};

}  // namespace

std::unique_ptr<ICommand> MakeAppShow(CLI::App& app, AppOptionsPtr options)
{
    return std::make_unique<Send>(
        app, std::move(options), Command::Show, "Has an application show its window.");
}

std::unique_ptr<ICommand> MakeAppHide(CLI::App& app, AppOptionsPtr options)
{
    return std::make_unique<Send>(
        app, std::move(options), Command::Hide, "Has an application hide its window.");
}

std::unique_ptr<ICommand> MakeAppClose(CLI::App& app, AppOptionsPtr options)
{
    return std::make_unique<Send>(app,
                                  std::move(options),
                                  Command::Close,
                                  "Ends an application until a restart is asked for.");
}

std::unique_ptr<ICommand> MakeAppRestart(CLI::App& app, AppOptionsPtr options)
{
    return std::make_unique<Send>(app,
                                  std::move(options),
                                  Command::Restart,
                                  "Ends an application or a service, if it runs, and starts it.");
}

}  // namespace tvoctl
