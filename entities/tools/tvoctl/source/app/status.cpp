#include <string>
#include <utility>

#include "../json_text.h"
#include "../printable.h"
#include "app_command.h"
#include "status_report.h"

namespace tvoctl {
namespace {

using app_manager::control::ApplicationStatus;
using app_manager::control::Entry;
using app_manager::control::IControlClient;
using app_manager::control::Refusal;
namespace refusals = app_manager::control::refusals;

class Status final : public AppCommand
{
public:
    Status(CLI::App& app, AppOptionsPtr options)
        : AppCommand(app, std::move(options), "status", "Tells how an application is doing.")
    {
        AddOptionalName();
    }

private:
    void RunOn(IControlClient& manager, Environment& environment) override
    {
        if (!Name().empty())
        {
            Print(Name(), manager.Status(Name()), environment);
            return;
        }
        for (const Entry& entry : manager.List())
        {
            PrintIfThere(entry.name, manager, environment);
        }
    }

    /// An entry may be taken out of the configuration while the list is gone through.
    static void PrintIfThere(const std::string& name,
                             IControlClient& manager,
                             Environment& environment)
    try
    {
        Print(name, manager.Status(name), environment);
    }
    catch (const Refusal& refusal)
    {
        if (refusal.Code() != refusals::UnknownName)
        {
            throw;
        }
    }

    static void Print(const std::string& name,
                      const ApplicationStatus& status,
                      Environment& environment)
    {
        if (environment.isJson)
        {
            environment.out.Print(JsonLine(StatusJson(name, status)));
            return;
        }
        for (const std::string& line : StatusLines(name, status))
        {
            environment.out.Print(Printable(line));
        }
    }
};

}  // namespace

std::unique_ptr<ICommand> MakeAppStatus(CLI::App& app, AppOptionsPtr options)
{
    return std::make_unique<Status>(app, std::move(options));
}

}  // namespace tvoctl
