#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQmlPropertyMap>

/// A window with what the kit opens in windows of their own, on a terminal without a palette.
int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    QQmlPropertyMap paletteProvider;
    paletteProvider.insert(QStringLiteral("palette"), QVariant::fromValue<QObject*>(nullptr));
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("paletteProvider"), &paletteProvider);
    engine.load(QUrl(QStringLiteral("qrc:/kit_window.qml")));
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
