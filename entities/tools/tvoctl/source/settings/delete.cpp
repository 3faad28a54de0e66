#include "report.h"
#include "settings_command.h"

namespace tvoctl {
namespace {

class Delete final : public SettingsCommand
{
public:
    Delete(CLI::App& settings, OptionsPtr options)
        : SettingsCommand(settings,
                          std::move(options),
                          "delete",
                          "Deletes a setting with all below it.")
    {
        AddPath();
    }

private:
    void RunOn(Environment& environment, const nvl::Path& path) override
    {
        Open(environment).Delete(path);
        PrintDone(environment, "delete", path);
    }
};

}  // namespace

std::unique_ptr<ICommand> MakeDelete(CLI::App& settings, OptionsPtr options)
{
    return std::make_unique<Delete>(settings, std::move(options));
}

}  // namespace tvoctl
