#pragma once

#include <memory>

#include <QObject>
#include <QStringList>

#include <shared/ui_kit/style/palette_factory.h>

namespace ui_kit_gallery {

/// Stands where a program has its palette provider. Gives no palette as well, since a component
/// must do without one.
class PaletteChoice final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject* palette READ Palette NOTIFY PaletteChanged)
    Q_PROPERTY(QString name READ Name WRITE SetName NOTIFY PaletteChanged)
    Q_PROPERTY(QStringList names READ Names CONSTANT)

public:
    explicit PaletteChoice(const QString& name);

    [[nodiscard]] static QStringList Names();

    /// @returns null for the choice "none"
    [[nodiscard]] QObject* Palette() const;
    [[nodiscard]] QString Name() const;
    /// @param name  one of Names()
    void SetName(const QString& name);

signals:
    void PaletteChanged();

private:
    std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> m_factory =
        vdi::uikit::utils::style::CreatePaletteFactory();
    std::shared_ptr<vdi::uikit::utils::style::IPalette> m_palette;
    QString m_name;
};

}  // namespace ui_kit_gallery
