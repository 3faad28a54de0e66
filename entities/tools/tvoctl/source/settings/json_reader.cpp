#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include <component/nvl/path.h>

#include "../failure.h"
#include "../json_text.h"
#include "../percent.h"
#include "json_form.h"
#include "kinds.h"
#include "path_argument.h"
#include "scalar_text.h"

namespace tvoctl {
namespace {

using nlohmann::json;
using settings_manager::Setting;
namespace kind = nvl::kind;

[[noreturn]] void Fail(const std::string& reason)
{
    throw Failure(ExitStatus::BadUse, reason);
}

Setting ReadInteger(const json& source)
{
    using Limits = std::numeric_limits<int>;
    const bool isTooLarge =
        source.is_number_unsigned() && source.get<std::uint64_t>() > std::uint64_t{Limits::max()};
    if (isTooLarge || source.get<std::int64_t>() < Limits::min())
    {
        Fail("a number beyond int32 needs a type");
    }
    return {source.get<int>()};
}

void CheckMembers(const json& source)
{
    for (const auto& [name, member] : source.items())
    {
        if (name != "$type" && name != "readOnly" && name != "value" && name != "hex")
        {
            Fail(fmt::format("'{}' does not belong to a value with a type", name));
        }
    }
    if (source.contains("value") == source.contains("hex"))
    {
        Fail("a type needs one of 'value' and 'hex'");
    }
}

Setting::Variant ReadHex(std::size_t kind, const json& hex)
{
    if (!hex.is_string() || (kind != kind::Blob && kind != kind::String))
    {
        Fail("'hex' is a string, and for blobs and strings only");
    }
    auto blob = std::get<kind::Blob>(ParseScalar(kind::Blob, hex.get_ref<const std::string&>()));
    if (kind == kind::String)
    {
        return std::string(blob.begin(), blob.end());
    }
    return blob;
}

Setting::Variant ReadScalar(std::size_t kind, const json& value)
{
    const bool isBytes = kind == kind::String || kind == kind::Blob;
    const bool isText = value.is_string() && kind != kind::Blob;
    if (!isText && (isBytes || !value.is_primitive() || value.is_string() || value.is_null()))
    {
        Fail(fmt::format("that is no value of the type {}", KindName(kind)));
    }
    return ParseScalar(kind, isText ? value.get<std::string>() : value.dump());
}

class Reader
{
public:
    /// @throws Failure  with the place; the reader is then of no more use
    Setting ReadTree(const json& source);

private:
    Setting Read(const json& source);
    Setting ReadChild(nvl::Level level, const json& source);
    Setting::List ReadList(const json& source);
    Setting::Map ReadMap(const json& source);
    Setting ReadTyped(const json& source);
    Setting::Variant ReadTypedValue(std::size_t kind, const json& source);

    nvl::Path m_path;
};

Setting Reader::ReadTree(const json& source)
try
{
    return Read(source);
}
catch (const Failure& failure)
{
    throw Failure(failure.Status(), fmt::format("at '{}': {}", PathText(m_path), failure.what()));
}

Setting Reader::Read(const json& source)
{
    switch (source.type())
    {
        case json::value_t::null:
            return {};
        case json::value_t::boolean:
            return {source.get<bool>()};
        case json::value_t::number_integer:
        case json::value_t::number_unsigned:
            return ReadInteger(source);
        case json::value_t::string:
            return {source.get<std::string>()};
        case json::value_t::array:
            return {ReadList(source)};
        case json::value_t::object:
            return source.contains("$type") ? ReadTyped(source) : Setting{ReadMap(source)};
        default:
            Fail("a number with a fraction or exponent needs a type");
    }
}

Setting Reader::ReadChild(nvl::Level level, const json& source)
{
    m_path.push_back(std::move(level));
    if (m_path.size() > MaxJsonDepth)
    {
        Fail("it is nested too deeply");
    }
    Setting child = Read(source);
    m_path.pop_back();
    return child;
}

Setting::List Reader::ReadList(const json& source)
{
    if (!source.is_array())
    {
        Fail("the value of a list is an array");
    }
    Setting::List list;
    list.reserve(source.size());
    for (const json& element : source)
    {
        list.push_back(ReadChild(list.size(), element));
    }
    return list;
}

Setting::Map Reader::ReadMap(const json& source)
{
    if (!source.is_object())
    {
        Fail("the value of a map is an object");
    }
    Setting::Map map;
    for (const auto& [encoded, member] : source.items())
    {
        const std::optional<std::string> name = PercentDecode(encoded);
        if (!name || encoded.starts_with('$'))
        {
            Fail(fmt::format("'{}' is no name", encoded));
        }
        // Two ways to write one name must not end as one member.
        if (!map.emplace(*name, ReadChild(*name, member)).second)
        {
            Fail(fmt::format("'{}' stands there twice", encoded));
        }
    }
    return map;
}

Setting Reader::ReadTyped(const json& source)
{
    CheckMembers(source);
    const json& type = source["$type"];
    const json isReadOnly = source.value("readOnly", json(false));
    if (!type.is_string() || !isReadOnly.is_boolean())
    {
        Fail("'$type' is a string, 'readOnly' is true or false");
    }
    const std::size_t kind = KindFromName(type.get_ref<const std::string&>());
    return {ReadTypedValue(kind, source), {.isReadOnly = isReadOnly.get<bool>()}};
}

Setting::Variant Reader::ReadTypedValue(std::size_t kind, const json& source)
{
    if (source.contains("hex"))
    {
        return ReadHex(kind, source["hex"]);
    }
    const json& value = source["value"];
    switch (kind)
    {
        case kind::List:
            return ReadList(value);
        case kind::Map:
            return ReadMap(value);
        case kind::None:
            return value.is_null() ? Setting::Variant() : ReadScalar(kind, value);
        default:
            return ReadScalar(kind, value);
    }
}

}  // namespace

Setting FromJson(const json& json)
{
    return Reader().ReadTree(json);
}

}  // namespace tvoctl
