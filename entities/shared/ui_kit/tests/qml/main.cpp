#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

#include <shared/ui_kit/style/palette_factory.h>

using vdi::uikit::utils::style::PaletteId;

/// Stands for the palette provider and gives what a test chooses, nothing included. Also the setup
/// of the tests' engine.
class FakePaletteProvider : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject* palette MEMBER m_palette NOTIFY PaletteChanged)

public slots:
    void qmlEngineAvailable(QQmlEngine* engine)
    {
        auto* context = engine->rootContext();
        context->setContextProperty(QStringLiteral("darkPalette"), m_dark.get());
        context->setContextProperty(QStringLiteral("lightPalette"), m_light.get());
        context->setContextProperty(QStringLiteral("paletteProvider"), this);
    }

signals:
    void PaletteChanged();

private:
    std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> m_factory =
        vdi::uikit::utils::style::CreatePaletteFactory();
    std::shared_ptr<QObject> m_dark = m_factory->GetPalette(PaletteId::Dark);
    std::shared_ptr<QObject> m_light = m_factory->GetPalette(PaletteId::Light);
    QObject* m_palette = nullptr;
};

QUICK_TEST_MAIN_WITH_SETUP(ui_kit, FakePaletteProvider)

#include "main.moc"
