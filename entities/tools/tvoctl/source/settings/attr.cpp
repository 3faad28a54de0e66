#include <string>

#include "../json_text.h"
#include "document.h"
#include "settings_command.h"

namespace tvoctl {
namespace {

using settings_manager::Attributes;

constexpr const char* ReadOnlyText = "ro";
constexpr const char* WritableText = "rw";

class Attr final : public SettingsCommand
{
public:
    Attr(CLI::App& settings, OptionsPtr options)
        : SettingsCommand(settings,
                          std::move(options),
                          "attr",
                          "Prints or sets whether a setting is read-only.")
    {
        AddPath();
        App()
            .add_option("ATTRIBUTE", m_attribute, "what it is to be")
            ->check(CLI::IsMember({ReadOnlyText, WritableText}));
    }

private:
    void RunOn(Environment& environment, const nvl::Path& path) override
    {
        Store store = Open(environment);
        const bool isRead = m_attribute.empty();
        const Attributes attributes =
            isRead ? store.GetAttributes(path) : Attributes{m_attribute == ReadOnlyText};
        if (!isRead)
        {
            store.SetAttributes(path, attributes);
        }
        if (environment.isJson)
        {
            environment.out.Print(
                JsonLine({{"path", PathForJson(path)}, {"readOnly", attributes.isReadOnly}}));
        }
        else if (isRead)
        {
            environment.out.Print(attributes.isReadOnly ? ReadOnlyText : WritableText);
        }
    }

    std::string m_attribute;
};

}  // namespace

std::unique_ptr<ICommand> MakeAttr(CLI::App& settings, OptionsPtr options)
{
    return std::make_unique<Attr>(settings, std::move(options));
}

}  // namespace tvoctl
