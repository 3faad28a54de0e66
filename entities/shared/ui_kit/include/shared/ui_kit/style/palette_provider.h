#pragma once

#include <memory>

#include <QObject>

#include <shared/ui_kit/style/palette.h>
#include <shared/ui_kit/style/palette_factory.h>
#include <shared/ui_kit/style/palette_id_interactor.h>

namespace vdi::uikit::utils::style {

/// The current palette for QML, which knows this object as `paletteProvider`. Follows the
/// interactor, whose only listener it is; a switch that fails is logged and keeps the old palette.
/// For the UI thread only.
class PaletteProvider final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(IPalette* palette READ Palette NOTIFY PaletteChanged)

public:
    /// @throws zin::CheckFailedException  a collaborator is null, the interactor has no identifier
    /// or
    ///                                    another listener, or there is no palette for its
    ///                                    identifier
    PaletteProvider(std::shared_ptr<IPaletteFactory> factory,
                    std::shared_ptr<IPaletteIdInteractor> interactor);
    ~PaletteProvider() override;

    /// @returns the current palette, never null; it lives as long as the factory
    [[nodiscard]] IPalette* Palette() const;

signals:
    void PaletteChanged();

private:
    void OnPaletteChanged();

    std::shared_ptr<IPaletteFactory> m_factory;
    std::shared_ptr<IPalette> m_palette;
    std::shared_ptr<IPaletteIdInteractor> m_interactor;
};

std::shared_ptr<PaletteProvider> CreatePaletteProvider(
    std::shared_ptr<IPaletteFactory> factory,
    std::shared_ptr<IPaletteIdInteractor> interactor);

}  // namespace vdi::uikit::utils::style
