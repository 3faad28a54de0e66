#include "level_from_text.h"

#include <algorithm>
#include <array>
#include <string>

namespace tvo::logger {
namespace {

constexpr std::array<std::string_view, 7>
    Names{"trace", "debug", "info", "warning", "error", "critical", "off"};

std::string ToLower(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(),
                   lower.end(),
                   lower.begin(),
                   [](char c)
                   { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

}  // namespace

std::optional<LogLevel> LevelFromText(std::string_view text)
{
    if (text.size() == 1 && text[0] >= '0' && text[0] <= '6')
    {
        return static_cast<LogLevel>(text[0] - '0');
    }
    const auto* const name = std::find(Names.begin(), Names.end(), ToLower(text));
    if (name == Names.end())
    {
        return std::nullopt;
    }
    return static_cast<LogLevel>(name - Names.begin());
}

}  // namespace tvo::logger
