#include <string>
#include <utility>

#include "../json_text.h"
#include "../table.h"
#include "app_command.h"
#include "words.h"

namespace tvoctl {
namespace {

using app_manager::control::Entry;

class List final : public AppCommand
{
public:
    List(CLI::App& app, AppOptionsPtr options)
        : AppCommand(app,
                     std::move(options),
                     "list",
                     "Lists services and applications in the order of their start.")
    {}

private:
    void RunOn(app_manager::control::IControlClient& manager, Environment& environment) override
    {
        Table table({"NAME", "KIND", "STATE", "PID"});
        for (const Entry& entry : manager.List())
        {
            if (environment.isJson)
            {
                environment.out.Print(JsonLine(
                    {{"name", entry.name},
                     {"kind", KindWord(entry.kind)},
                     {"state", StateWord(entry.state)},
                     {"pid", entry.pid != 0 ? nlohmann::json(entry.pid) : nlohmann::json()}}));
                continue;
            }
            table.Add({entry.name,
                       KindWord(entry.kind),
                       StateWord(entry.state),
                       entry.pid != 0 ? std::to_string(entry.pid) : "-"});
        }
        table.Print(environment.out);
    }
};

}  // namespace

std::unique_ptr<ICommand> MakeAppList(CLI::App& app, AppOptionsPtr options)
{
    return std::make_unique<List>(app, std::move(options));
}

}  // namespace tvoctl
