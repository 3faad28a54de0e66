#include <optional>
#include <string>

#include "kinds.h"
#include "path_argument.h"
#include "report.h"
#include "settings_command.h"
#include "value_text.h"

namespace tvoctl {
namespace {

class Set final : public SettingsCommand
{
public:
    Set(CLI::App& settings, OptionsPtr options)
        : SettingsCommand(settings,
                          std::move(options),
                          "set",
                          "Sets the value of a setting. It is kept for good when this ends.")
    {
        AddPath();
        App()
            .add_option(
                "VALUE", m_value, "as `get` prints it; put -- before PATH if it begins with -")
            ->required();
        App()
            .add_option("--type", m_type, "new type of the value; the old one stays otherwise")
            ->type_name("TYPE");
        App().add_flag("--create", m_mayCreate, "make it, and maps above it, where it is missing");
    }

private:
    void RunOn(Environment& environment, const nvl::Path& path) override
    {
        std::optional<std::size_t> kind;
        if (m_type)
        {
            kind = KindFromName(*m_type);
        }
        Store store = Open(environment);
        const auto value = ParseValue(kind ? *kind : KindThere(store, path), m_value);
        CheckPaths(path, value);
        if (m_mayCreate)
        {
            store.SetOrCreateValue(path, value);
        }
        else
        {
            store.SetValue(path, value);
        }
        PrintDone(environment, "set", path);
    }

    std::size_t KindThere(const Store& store, const nvl::Path& path) const
    {
        if (!m_mayCreate)
        {
            return store.Get(path).value.index();
        }
        const auto setting = store.Find(path);
        return setting ? setting->value.index() : nvl::kind::String;
    }

    std::string m_value;
    std::optional<std::string> m_type;
    bool m_mayCreate = false;
};

}  // namespace

std::unique_ptr<ICommand> MakeSet(CLI::App& settings, OptionsPtr options)
{
    return std::make_unique<Set>(settings, std::move(options));
}

}  // namespace tvoctl
