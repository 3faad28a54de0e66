#pragma once

#include <cstdint>

#include <fmt/format.h>

namespace vdi::uikit::utils::style {

enum class PaletteId : std::uint16_t
{
    Light = 1,
    Dark = 2
};

}  // namespace vdi::uikit::utils::style

/// An identifier prints as its number, since a wrong one has no name.
template <>
struct fmt::formatter<vdi::uikit::utils::style::PaletteId> : fmt::formatter<std::uint16_t>
{
    template <class Context>
    auto format(vdi::uikit::utils::style::PaletteId id, Context& context) const
    {
        return fmt::formatter<std::uint16_t>::format(static_cast<std::uint16_t>(id), context);
    }
};
