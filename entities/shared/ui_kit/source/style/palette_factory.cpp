#include "style/palette_factory.h"

#include <component/logger/logger.h>

#include "style/palettes.h"

namespace vdi::uikit::utils::style {
namespace {

std::shared_ptr<IPalette> CreatePaletteById(PaletteId id)
{
    switch (id)
    {
        case PaletteId::Light:
            return std::make_shared<LightPalette>();
        case PaletteId::Dark:
            return std::make_shared<DarkPalette>();
    }
    TVO_LOG_WARNING("Palette for id: {} not found", id);
    return {};
}

}  // namespace

std::shared_ptr<IPalette> PaletteFactory::GetPalette(PaletteId id) const noexcept
{
    const auto entry = m_palettes.try_emplace(id).first;
    if (entry->second == nullptr)
        entry->second = CreatePaletteById(id);
    auto palette = entry->second;
    if (palette == nullptr)
        m_palettes.erase(entry);
    return palette;
}

std::shared_ptr<IPaletteFactory> CreatePaletteFactory()
{
    return std::make_shared<PaletteFactory>();
}

}  // namespace vdi::uikit::utils::style
