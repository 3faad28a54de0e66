#include <optional>
#include <string>

#include "../failure.h"
#include "kinds.h"
#include "path_argument.h"
#include "report.h"
#include "settings_command.h"
#include "value_text.h"

namespace tvoctl {
namespace {

using settings_manager::Setting;

class Create final : public SettingsCommand
{
public:
    Create(CLI::App& settings, OptionsPtr options)
        : SettingsCommand(settings,
                          std::move(options),
                          "create",
                          "Creates a setting, and maps for those missing above it.")
    {
        AddPath();
        App().add_option("VALUE", m_value, "not needed for a map, a list and none");
        App()
            .add_option("--type", m_type, "string by default, map without a VALUE")
            ->type_name("TYPE");
    }

private:
    void RunOn(Environment& environment, const nvl::Path& path) override
    {
        const Setting setting = MakeSetting();
        CheckPaths(path, setting);
        Open(environment).Create(path, setting);
        PrintDone(environment, "create", path);
    }

    [[nodiscard]] Setting MakeSetting() const
    {
        namespace kind = nvl::kind;
        const std::size_t usual = m_value ? kind::String : kind::Map;
        const std::size_t wanted = m_type ? KindFromName(*m_type) : usual;
        if (m_value)
        {
            return ParseValue(wanted, *m_value);
        }
        switch (wanted)
        {
            case kind::None:
                return {};
            case kind::List:
                return {Setting::List()};
            case kind::Map:
                return {Setting::Map()};
            default:
                throw Failure(ExitStatus::BadUse, "VALUE is needed for a setting of this type");
        }
    }

    std::optional<std::string> m_value;
    std::optional<std::string> m_type;
};

}  // namespace

std::unique_ptr<ICommand> MakeCreate(CLI::App& settings, OptionsPtr options)
{
    return std::make_unique<Create>(settings, std::move(options));
}

}  // namespace tvoctl
