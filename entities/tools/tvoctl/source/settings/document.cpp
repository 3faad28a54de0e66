#include "document.h"

#include <optional>

#include "../failure.h"
#include "../percent.h"
#include "json_form.h"
#include "path_argument.h"

namespace tvoctl {
namespace {

constexpr const char* PathMember = "path";
constexpr const char* SettingMember = "setting";

}  // namespace

std::string PathForJson(const nvl::Path& path)
{
    return PercentEncode(PathText(path));
}

nlohmann::json ToJson(const Document& document)
{
    return {{PathMember, PathForJson(document.path)}, {SettingMember, ToJson(document.setting)}};
}

Document DocumentFromJson(const nlohmann::json& json)
{
    const bool isDocument = json.is_object() && json.size() == 2 && json.contains(PathMember) &&
                            json.contains(SettingMember) && json[PathMember].is_string();
    const auto pathText =
        isDocument ? PercentDecode(json[PathMember].get_ref<const std::string&>()) : std::nullopt;
    if (!pathText)
    {
        throw Failure(ExitStatus::BadUse, R"(the input is not {"path": "...", "setting": ...})");
    }
    Document document{ParsePath(*pathText), FromJson(json[SettingMember])};
    CheckPaths(document.path, document.setting);
    return document;
}

}  // namespace tvoctl
