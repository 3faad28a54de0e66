#pragma once

#include <string>
#include <utility>

#include <fmt/format.h>

/// The result of exception processing, as "[code, text]" with the code as a number.
template <>
struct fmt::formatter<std::pair<int, std::string>>
{
    constexpr auto parse(format_parse_context& context)
    {
        return context.begin();
    }

    template <class Context>
    auto format(const std::pair<int, std::string>& result, Context& context) const
    {
        return fmt::format_to(context.out(), "[{}, {}]", result.first, result.second);
    }
};
