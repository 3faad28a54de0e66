#include "register_qml.h"

#include <QUrl>
#include <QtQml>

// Q_INIT_RESOURCE names functions of the global namespace. The bundles also register themselves
// where the linker keeps them; this makes it certain.
static void InitResources()
{
    Q_INIT_RESOURCE(ui_kit_images);
    Q_INIT_RESOURCE(ui_kit_qml);
    Q_INIT_RESOURCE(translation_extended);
}

namespace cert_approver {

void RegisterQml()
{
    const QUrl style(QStringLiteral("qrc:/ui_kit_candidate/qml/style/Style.qml"));
    qmlRegisterSingletonType(style, "AppStyle", 1, 0, "Style");
    InitResources();
}

}  // namespace cert_approver
