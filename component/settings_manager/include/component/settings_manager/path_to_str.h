#pragma once

#include <string>
#include <string_view>

#include <fmt/format.h>

#include <component/nvl/id_spec.h>
#include <component/nvl/path.h>

namespace settings_manager {

/// The text of a path by the rules of the settings tree, for log lines and for the service. There
/// is always a text: where the path has none, one that says why.
[[nodiscard]] std::string PathToStr(const nvl::Path& path);

}  // namespace settings_manager

/// A path as `PathToStr` writes it.
template <>
struct fmt::formatter<nvl::Path> : fmt::formatter<std::string_view>
{
    template <class Context>
    auto format(const nvl::Path& path, Context& context) const
    {
        return formatter<std::string_view>::format(settings_manager::PathToStr(path), context);
    }
};

/// A state as its number.
template <>
struct fmt::formatter<nvl::IdState> : fmt::formatter<int>
{
    template <class Context>
    auto format(nvl::IdState state, Context& context) const
    {
        return formatter<int>::format(static_cast<int>(state), context);
    }
};
