#include "value_text.h"

#include <fmt/format.h>

#include "../failure.h"
#include "../json_text.h"
#include "json_form.h"
#include "kinds.h"
#include "scalar_text.h"

namespace tvoctl {
namespace {

using settings_manager::Setting;

bool IsContainer(std::size_t kind)
{
    return kind == nvl::kind::List || kind == nvl::kind::Map;
}

}  // namespace

std::string FormatValue(const Setting& setting)
{
    if (!IsContainer(setting.value.index()))
    {
        return FormatScalar(setting.value);
    }
    Setting writable = setting;
    writable.attributes = {};  // they are no part of the value
    return JsonLine(ToJson(writable));
}

Setting ParseValue(std::size_t kind, std::string_view text)
{
    if (!IsContainer(kind))
    {
        return {ParseScalar(kind, text)};
    }
    Setting setting = FromJson(ParseJson(text));
    if (setting.value.index() != kind)
    {
        throw Failure(ExitStatus::BadUse, fmt::format("'{}' is no {}", text, KindName(kind)));
    }
    setting.attributes = {};
    return setting;
}

}  // namespace tvoctl
