#pragma once

#include <unordered_map>

#include <shared/ui_kit/style/palette_factory.h>

namespace vdi::uikit::utils::style {

class PaletteFactory final : public IPaletteFactory
{
public:
    [[nodiscard]] std::shared_ptr<IPalette> GetPalette(PaletteId id) const noexcept override;

private:
    mutable std::unordered_map<PaletteId, std::shared_ptr<IPalette>> m_palettes;
};

}  // namespace vdi::uikit::utils::style
