#include "palette_choice.h"

namespace ui_kit_gallery {

using vdi::uikit::utils::style::PaletteId;

PaletteChoice::PaletteChoice(const QString& name)
{
    SetName(name);
}

QStringList PaletteChoice::Names()
{
    return {QStringLiteral("light"), QStringLiteral("dark"), QStringLiteral("none")};
}

QObject* PaletteChoice::Palette() const
{
    return m_palette.get();
}

QString PaletteChoice::Name() const
{
    return m_name;
}

void PaletteChoice::SetName(const QString& name)
{
    if (name == m_name)
        return;
    m_name = name;
    m_palette.reset();
    if (name != QStringLiteral("none"))
    {
        m_palette = m_factory->GetPalette(name == QStringLiteral("light") ? PaletteId::Light
                                                                          : PaletteId::Dark);
    }
    emit PaletteChanged();
}

}  // namespace ui_kit_gallery
