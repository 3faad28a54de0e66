#include <utility>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <shared/ui_kit/style/palette_provider.h>

namespace vdi::uikit::utils::style {

PaletteProvider::PaletteProvider(std::shared_ptr<IPaletteFactory> factory,
                                 std::shared_ptr<IPaletteIdInteractor> interactor)
    : m_factory(std::move(factory)), m_interactor(std::move(interactor))
{
    ZIN_CHECK(m_factory != nullptr, "PaletteFactory is nullptr");
    ZIN_CHECK(m_interactor != nullptr, "PaletteIdInteractor is nullptr");
    m_palette = m_factory->GetPalette(m_interactor->GetPaletteId());
    ZIN_CHECK(m_palette != nullptr, "Failed to create initial palette");
    m_interactor->RegisterCallback([this] { OnPaletteChanged(); });
}

PaletteProvider::~PaletteProvider()
{
    m_interactor->UnregisterCallback();
}

IPalette* PaletteProvider::Palette() const
{
    return m_palette.get();
}

void PaletteProvider::OnPaletteChanged()
try
{
    const auto id = m_interactor->GetPaletteId();
    if (id == m_palette->Id())
        return;
    auto palette = m_factory->GetPalette(id);
    if (palette == nullptr)
        return;
    m_palette = std::move(palette);
    emit PaletteChanged();
}
catch (...)
{
    const auto [code, message] = ::plk::utils::ProcessException();
    TVO_LOG_CRITICAL("Failed to change palette, {} with result: {}", message, code);
}

std::shared_ptr<PaletteProvider> CreatePaletteProvider(
    std::shared_ptr<IPaletteFactory> factory,
    std::shared_ptr<IPaletteIdInteractor> interactor)
{
    return std::make_shared<PaletteProvider>(std::move(factory), std::move(interactor));
}

}  // namespace vdi::uikit::utils::style
