#pragma once

#include <memory>

#include <shared/ui_kit/style/palette.h>

#include "style/palette_colors.h"

namespace vdi::uikit::utils::style {

/// The palette with one column of the table of colours.
template <PaletteId Column>
class TablePalette final : public IPalette
{
public:
    [[nodiscard]] PaletteId Id() const override
    {
        return Column;
    }

#define UI_KIT_COLOR_READER(role, light, dark) \
    [[nodiscard]] QColor role() const override \
    {                                          \
        return m_##role;                       \
    }
#define UI_KIT_GRADIENT_READER(role, start, stop) \
    [[nodiscard]] Gradient* role() const override \
    {                                             \
        return m_##role.get();                    \
    }
    UI_KIT_PALETTE_COLORS(UI_KIT_COLOR_READER, UI_KIT_GRADIENT_READER)
#undef UI_KIT_COLOR_READER
#undef UI_KIT_GRADIENT_READER

private:
    static constexpr const char* NoColor = "";  // which QColor reads as an invalid colour

    static QColor Choose(const char* light, const char* dark)
    {
        return QColor(Column == PaletteId::Light ? light : dark);
    }

#define UI_KIT_COLOR_FIELD(role, light, dark) QColor m_##role = Choose(light, dark);
#define UI_KIT_GRADIENT_FIELD(role, start, stop) \
    std::shared_ptr<Gradient> m_##role = std::make_shared<Gradient>((start), 0.0, (stop), 1.0);
    UI_KIT_PALETTE_COLORS(UI_KIT_COLOR_FIELD, UI_KIT_GRADIENT_FIELD)
#undef UI_KIT_COLOR_FIELD
#undef UI_KIT_GRADIENT_FIELD
};

using LightPalette = TablePalette<PaletteId::Light>;
using DarkPalette = TablePalette<PaletteId::Dark>;

}  // namespace vdi::uikit::utils::style
