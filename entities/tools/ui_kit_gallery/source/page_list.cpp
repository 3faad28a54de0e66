#include "page_list.h"

#include <QDir>

namespace ui_kit_gallery {
namespace {

const QString Suffix = QStringLiteral("Page.qml");

}  // namespace

QStringList PageNames()
{
    QStringList names;
    const QDir pages(QStringLiteral(":/ui_kit_gallery/pages"));
    for (const auto& file : pages.entryList({"*" + Suffix}, QDir::Files, QDir::Name))
        names.push_back(file.chopped(Suffix.size()));
    return names;
}

QUrl PageUrl(const QString& name)
{
    return "qrc:/ui_kit_gallery/pages/" + name + Suffix;
}

}  // namespace ui_kit_gallery
