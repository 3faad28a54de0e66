#include "../json_text.h"
#include "document.h"
#include "settings_command.h"

namespace tvoctl {
namespace {

class Dump final : public SettingsCommand
{
public:
    Dump(CLI::App& settings, OptionsPtr options)
        : SettingsCommand(settings,
                          std::move(options),
                          "dump",
                          "Prints a setting with all below it, for `load` to take back.")
    {
        AddOptionalPath();
    }

private:
    void RunOn(Environment& environment, const nvl::Path& path) override
    {
        const auto json = ToJson(Document{path, Open(environment).Get(path)});
        environment.out.Print(environment.isJson ? JsonLine(json) : JsonPage(json));
    }
};

}  // namespace

std::unique_ptr<ICommand> MakeDump(CLI::App& settings, OptionsPtr options)
{
    return std::make_unique<Dump>(settings, std::move(options));
}

}  // namespace tvoctl
