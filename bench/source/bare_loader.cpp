// A window without an application: each byte from the named pipe shows the dialog, or hides it.
//
//   tvo_bare_loader PIPE

#include <cstdio>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QSocketNotifier>
#include <QTranslator>
#include <QWindow>
#include <fcntl.h>
#include <unistd.h>

#include "register_qml.h"

namespace {

/// Neither the coming nor the going of a writer disturbs it.
int OpenPipe(const char* path)
{
    return ::open(path, O_RDWR | O_CLOEXEC);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: %s PIPE\n", argv[0]);
        return 2;
    }
    const QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    cert_approver::RegisterQml();
    QTranslator translator;
    if (translator.load(QStringLiteral(":/translations/cert_approver_en.qm")))
    {
        QCoreApplication::installTranslator(&translator);
    }
    QQmlApplicationEngine engine(QUrl(QStringLiteral("qrc:/bench/loaded_dialog.qml")));
    auto* window = engine.rootObjects().isEmpty()
                       ? nullptr
                       : qobject_cast<QWindow*>(engine.rootObjects().constFirst());
    const int pipe = OpenPipe(argv[1]);
    if (window == nullptr || pipe < 0)
    {
        std::fprintf(stderr, "no window, or no pipe at %s\n", argv[1]);
        return 1;
    }
    const QSocketNotifier bell(pipe, QSocketNotifier::Read);
    QObject::connect(&bell,
                     &QSocketNotifier::activated,
                     window,
                     [window, pipe]
                     {
                         char byte = 0;
                         if (::read(pipe, &byte, 1) == 1)
                         {
                             window->setProperty("visible", !window->isVisible());
                         }
                     });
    return QGuiApplication::exec();
}
