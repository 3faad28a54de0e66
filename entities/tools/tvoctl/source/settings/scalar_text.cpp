#include "scalar_text.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <optional>
#include <system_error>
#include <utility>

#include <fmt/format.h>

#include "../failure.h"
#include "../hex.h"
#include "kinds.h"

namespace tvoctl {
namespace {

using plk::types::Timestamp;
using settings_manager::Setting;

constexpr std::string_view NanText = "nan";
constexpr std::string_view NanPrefix = "nan:";
constexpr std::uint64_t NanBits = 0x7FF8000000000000;
constexpr std::size_t NanDigits = 16;

// A text for each type, and its way back. What cannot be read is nothing.

std::string Format(nvl_sm::None /*value*/)
{
    return "none";
}

std::string Format(bool value)
{
    return value ? "true" : "false";
}

template <std::integral T>
std::string Format(T value)
{
    return fmt::format("{}", +value);
}

std::string Format(double value)
{
    if (std::isnan(value))
    {
        const auto bits = std::bit_cast<std::uint64_t>(value);
        return bits == NanBits ? std::string(NanText) : fmt::format("{}{:016x}", NanPrefix, bits);
    }
    std::array<char, 32> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), written.ptr};
}

std::string Format(Timestamp value)
{
    return Format(value.value);
}

std::string Format(const std::string& value)
{
    return value;
}

std::string Format(const Setting::Blob& value)
{
    return ToHex(value);
}

std::string Format(const Setting::List& /*value*/)
{
    throw std::bad_variant_access();
}

std::string Format(const Setting::Map& /*value*/)
{
    throw std::bad_variant_access();
}

template <class T>
std::optional<T> ParseNumber(std::string_view text, auto... base)
{
    T value{};
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value, base...);
    const bool isWhole = read.ec == std::errc() && read.ptr == end;
    return isWhole ? std::optional<T>(value) : std::nullopt;
}

std::optional<double> ParseNan(std::string_view digits)
{
    const auto bits = ParseNumber<std::uint64_t>(digits, 16);
    if (!bits || digits.size() != NanDigits || !std::isnan(std::bit_cast<double>(*bits)))
    {
        return std::nullopt;
    }
    return std::bit_cast<double>(*bits);
}

void Parse(std::string_view text, std::optional<nvl_sm::None>& value)
{
    if (text == Format(nvl_sm::None()))
    {
        value.emplace();
    }
}

void Parse(std::string_view text, std::optional<bool>& value)
{
    if (text == Format(true) || text == Format(false))
    {
        value = text == Format(true);
    }
}

template <std::integral T>
void Parse(std::string_view text, std::optional<T>& value)
{
    value = ParseNumber<T>(text);
}

void Parse(std::string_view text, std::optional<double>& value)
{
    if (text == NanText)
    {
        value = std::bit_cast<double>(NanBits);
    }
    else if (text.starts_with(NanPrefix))
    {
        value = ParseNan(text.substr(NanPrefix.size()));
    }
    else
    {
        value = ParseNumber<double>(text);
        if (value && std::isnan(*value))  // in a way of writing that is not ours
        {
            value.reset();
        }
    }
}

void Parse(std::string_view text, std::optional<Timestamp>& value)
{
    if (const auto number = ParseNumber<std::int64_t>(text))
    {
        value = Timestamp{*number};
    }
}

void Parse(std::string_view text, std::optional<std::string>& value)
{
    value = text;
}

void Parse(std::string_view text, std::optional<Setting::Blob>& value)
{
    value = FromHex(text);
}

void Parse(std::string_view /*text*/, std::optional<Setting::List>& /*value*/) {}

void Parse(std::string_view /*text*/, std::optional<Setting::Map>& /*value*/) {}

template <std::size_t Kind>
std::optional<Setting::Variant> ParseKind(std::string_view text)
{
    std::optional<std::variant_alternative_t<Kind, Setting::Variant>> value;
    Parse(text, value);
    if (!value)
    {
        return std::nullopt;
    }
    return Setting::Variant(std::in_place_index<Kind>, std::move(*value));
}

using Parser = std::optional<Setting::Variant> (*)(std::string_view text);

template <std::size_t... Kind>
constexpr std::array<Parser, sizeof...(Kind)> MakeParsers(std::index_sequence<Kind...> /*kinds*/)
{
    return {&ParseKind<Kind>...};
}

constexpr auto Parsers = MakeParsers(std::make_index_sequence<nvl::kind::Count>());

}  // namespace

std::string FormatScalar(const Setting::Variant& value)
{
    return std::visit([](const auto& alternative) { return Format(alternative); }, value);
}

Setting::Variant ParseScalar(std::size_t kind, std::string_view text)
{
    std::optional<Setting::Variant> value = Parsers.at(kind)(text);
    if (!value)
    {
        throw Failure(ExitStatus::BadUse, fmt::format("'{}' is no {}", text, KindName(kind)));
    }
    return std::move(*value);
}

}  // namespace tvoctl
