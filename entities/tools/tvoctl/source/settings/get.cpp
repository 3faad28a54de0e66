#include "../json_text.h"
#include "document.h"
#include "settings_command.h"
#include "value_text.h"

namespace tvoctl {
namespace {

class Get final : public SettingsCommand
{
public:
    Get(CLI::App& settings, OptionsPtr options)
        : SettingsCommand(settings, std::move(options), "get", "Prints the value of a setting.")
    {
        AddPath();
    }

private:
    void RunOn(Environment& environment, const nvl::Path& path) override
    {
        const Document document{path, Open(environment).Get(path)};
        environment.out.Print(environment.isJson ? JsonLine(ToJson(document))
                                                 : FormatValue(document.setting));
    }
};

}  // namespace

std::unique_ptr<ICommand> MakeGet(CLI::App& settings, OptionsPtr options)
{
    return std::make_unique<Get>(settings, std::move(options));
}

}  // namespace tvoctl
