#include <memory>

#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

#include <shared/ui_kit/style/palette_factory.h>

using vdi::uikit::utils::style::IPalette;
using vdi::uikit::utils::style::PaletteId;

/// Stands for the palette provider and lets a test choose what it gives, nothing included.
class FakePaletteProvider : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject* palette MEMBER m_palette NOTIFY PaletteChanged)

signals:
    void PaletteChanged();

private:
    QObject* m_palette = nullptr;
};

class Setup : public QObject
{
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine* engine)
    {
        m_dark = m_factory->GetPalette(PaletteId::Dark);
        m_light = m_factory->GetPalette(PaletteId::Light);
        auto* context = engine->rootContext();
        context->setContextProperty(QStringLiteral("darkPalette"), m_dark.get());
        context->setContextProperty(QStringLiteral("lightPalette"), m_light.get());
        context->setContextProperty(QStringLiteral("paletteProvider"), &m_provider);
    }

private:
    std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> m_factory =
        vdi::uikit::utils::style::CreatePaletteFactory();
    std::shared_ptr<IPalette> m_dark;
    std::shared_ptr<IPalette> m_light;
    FakePaletteProvider m_provider;
};

QUICK_TEST_MAIN_WITH_SETUP(ui_kit, Setup)

#include "main.moc"
