#include "report.h"

#include <fmt/format.h>

#include <component/settings_manager/i_settings_manager.h>

#include "../json_text.h"
#include "../printable.h"
#include "document.h"
#include "json_form.h"
#include "path_argument.h"

namespace tvoctl {

using settings_manager::Setting;
namespace update = settings_manager::update;

std::string ChangeName(unsigned char kinds)
{
    if ((kinds & update::Deleted) != 0)
    {
        return "deleted";
    }
    if ((kinds & update::Created) != 0)
    {
        return "created";
    }
    const bool isValue = (kinds & update::ValueChanged) != 0;
    const bool isAttributes = (kinds & update::AttributesChanged) != 0;
    return fmt::format("{}{}{}",
                       isValue ? "value" : "",
                       isValue && isAttributes ? "," : "",
                       isAttributes ? "attributes" : "");
}

void PrintSetting(Environment& environment,
                  std::string_view subject,
                  const nvl::Path& path,
                  const Setting* setting)
{
    if (environment.isJson)
    {
        nlohmann::json line = {{"change", subject}, {"path", PathForJson(path)}};
        if (setting != nullptr)
        {
            line["setting"] = ToJson(*setting);
        }
        environment.out.Print(JsonLine(line));
        return;
    }
    std::string line = fmt::format("{}\t{}", subject, Printable(PathText(path)));
    if (setting != nullptr)
    {
        line += '\t' + JsonLine(ToJson(*setting));
    }
    environment.out.Print(line);
}

void PrintChanges(Environment& environment, const std::vector<Change>& changes)
{
    for (const Change& change : changes)
    {
        PrintSetting(environment, ChangeName(change.kinds), change.path, change.setting);
    }
}

void PrintDone(Environment& environment, std::string_view command, const nvl::Path& path)
{
    if (environment.isJson)
    {
        environment.out.Print(JsonLine({{"done", command}, {"path", PathForJson(path)}}));
    }
}

}  // namespace tvoctl
