#include "settings_command.h"
#include "watcher.h"

namespace tvoctl {
namespace {

class Watch final : public SettingsCommand
{
public:
    Watch(CLI::App& settings, OptionsPtr options)
        : SettingsCommand(settings,
                          std::move(options),
                          "watch",
                          "Prints each change at and below a setting, until it is interrupted.")
    {
        AddOptionalPath();
        App().add_flag("--initial", m_printsInitial, "print first what is there");
    }

private:
    void RunOn(Environment& environment, const nvl::Path& path) override
    {
        environment.endOnSignals();
        Watcher(environment, Server(), path, m_printsInitial).Run(Patience());
    }

    bool m_printsInitial = false;
};

}  // namespace

std::unique_ptr<ICommand> MakeWatch(CLI::App& settings, OptionsPtr options)
{
    return std::make_unique<Watch>(settings, std::move(options));
}

}  // namespace tvoctl
