#include "json_form.h"

#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "../hex.h"
#include "../percent.h"
#include "../printable.h"
#include "kinds.h"
#include "scalar_text.h"

namespace tvoctl {
namespace {

using nlohmann::json;
using settings_manager::Setting;
namespace kind = nvl::kind;

std::string MemberName(const std::string& name)
{
    return name.starts_with('$') ? "%24" + PercentEncode(name.substr(1)) : PercentEncode(name);
}

struct ToValue
{
    json operator()(nvl_sm::None /*value*/) const
    {
        return nullptr;
    }

    json operator()(bool value) const
    {
        return value;
    }

    template <std::integral T>
    json operator()(T value) const
    {
        return sizeof(T) < sizeof(std::int64_t) ? json(value) : json(FormatScalar(value));
    }

    json operator()(double value) const
    {
        return std::isfinite(value) ? json(value) : json(FormatScalar(value));
    }

    json operator()(plk::types::Timestamp value) const
    {
        return FormatScalar(value);
    }

    json operator()(const std::string& value) const
    {
        return value;
    }

    json operator()(const Setting::Blob& value) const
    {
        return ToHex(value);
    }

    json operator()(const Setting::List& list) const
    {
        json array = json::array();
        for (const Setting& element : list)
        {
            array.push_back(ToJson(element));
        }
        return array;
    }

    json operator()(const Setting::Map& map) const
    {
        json object = json::object();
        for (const auto& [name, member] : map)
        {
            object.emplace(MemberName(name), ToJson(member));
        }
        return object;
    }
};

const std::string* BytesOf(const Setting& setting)
{
    const auto* const text = std::get_if<kind::String>(&setting.value);
    return text != nullptr && !IsUtf8(*text) ? text : nullptr;
}

bool IsPlainKind(std::size_t index)
{
    switch (index)
    {
        case kind::None:
        case kind::Bool:
        case kind::Int32:
        case kind::String:
        case kind::List:
        case kind::Map:
            return true;
        default:
            return false;
    }
}

}  // namespace

json ToJson(const Setting& setting)
{
    const std::string* const bytes = BytesOf(setting);
    const bool isReadOnly = setting.attributes.isReadOnly;
    if (!isReadOnly && bytes == nullptr && IsPlainKind(setting.value.index()))
    {
        return std::visit(ToValue(), setting.value);
    }
    json typed = {{"$type", KindName(setting)}};
    if (isReadOnly)
    {
        typed["readOnly"] = true;
    }
    if (bytes != nullptr)
    {
        typed["hex"] =
            ToHex({reinterpret_cast<const unsigned char*>(bytes->data()), bytes->size()});
    }
    else
    {
        const bool isBlob = setting.value.index() == kind::Blob;
        typed[isBlob ? "hex" : "value"] = std::visit(ToValue(), setting.value);
    }
    return typed;
}

}  // namespace tvoctl
