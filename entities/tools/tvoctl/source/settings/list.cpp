#include <string>

#include <fmt/format.h>

#include "../failure.h"
#include "../json_text.h"
#include "../printable.h"
#include "document.h"
#include "json_form.h"
#include "kinds.h"
#include "path_argument.h"
#include "settings_command.h"
#include "value_text.h"

namespace tvoctl {
namespace {

using settings_manager::Setting;
namespace kind = nvl::kind;

const char* AttributeText(const Setting& setting)
{
    return setting.attributes.isReadOnly ? "ro" : "rw";
}

/// How many settings stand directly below one; nothing for one that can have none.
std::optional<std::size_t> Size(const Setting& setting)
{
    if (const auto* const list = std::get_if<kind::List>(&setting.value))
    {
        return list->size();
    }
    const auto* const map = std::get_if<kind::Map>(&setting.value);
    return map != nullptr ? std::optional(map->size()) : std::nullopt;
}

class List final : public SettingsCommand
{
public:
    List(CLI::App& settings, OptionsPtr options)
        : SettingsCommand(settings,
                          std::move(options),
                          "list",
                          "Lists what stands directly below a setting.")
    {
        AddOptionalPath();
    }

private:
    void RunOn(Environment& environment, const nvl::Path& path) override
    {
        const Setting setting = Open(environment).Get(path);
        if (const auto* const list = std::get_if<kind::List>(&setting.value))
        {
            for (std::size_t i = 0; i < list->size(); ++i)
            {
                PrintChild(environment, path / i, (*list)[i]);
            }
        }
        else if (const auto* const map = std::get_if<kind::Map>(&setting.value))
        {
            for (const auto& [name, member] : *map)
            {
                PrintChild(environment, path / name, member);
            }
        }
        else
        {
            throw Failure(ExitStatus::Refused,
                          fmt::format("'{}' is no map and no list", PathText(path)));
        }
    }

    static void PrintChild(Environment& environment, const nvl::Path& path, const Setting& child)
    {
        const auto size = Size(child);
        if (environment.isJson)
        {
            nlohmann::json line = {{"path", PathForJson(path)},
                                   {"type", KindName(child)},
                                   {"readOnly", child.attributes.isReadOnly}};
            line[size ? "size" : "setting"] = size ? nlohmann::json(*size) : ToJson(child);
            environment.out.Print(JsonLine(line));
            return;
        }
        environment.out.Print(Printable(fmt::format("{}", PathText({path.back()}))) + '\t' +
                              std::string(KindName(child)) + '\t' + AttributeText(child) + '\t' +
                              (size ? fmt::format("({})", *size) : Printable(FormatValue(child))));
    }
};

}  // namespace

std::unique_ptr<ICommand> MakeList(CLI::App& settings, OptionsPtr options)
{
    return std::make_unique<List>(settings, std::move(options));
}

}  // namespace tvoctl
