#pragma once

#include <memory>

#include <shared/ui_kit/style/palette.h>

namespace vdi::uikit::utils::style {

/// Makes each palette once and keeps it for its own life. For the UI thread only.
class IPaletteFactory
{
public:
    virtual ~IPaletteFactory() = default;

    /// @returns the palette, or an empty pointer for an unknown identifier, which is logged
    [[nodiscard]] virtual std::shared_ptr<IPalette> GetPalette(PaletteId id) const noexcept = 0;
};

std::shared_ptr<IPaletteFactory> CreatePaletteFactory();

}  // namespace vdi::uikit::utils::style
