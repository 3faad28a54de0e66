#include "documentation.h"

#include <stdexcept>

#include <QDir>
#include <QSaveFile>

#include "component_table.h"
#include "gallery.h"
#include "page_list.h"

namespace ui_kit_gallery {
namespace {

using namespace std::chrono_literals;

/// Longer than a tooltip takes to show.
constexpr auto Calm = 600ms;

const QStringList PicturePalettes{QStringLiteral("light"), QStringLiteral("dark")};

/// What the components declare for each other, and the palette, of which the introduction tells.
const QStringList OwnBusiness{QStringLiteral("pal"),
                              QStringLiteral("palette"),
                              QStringLiteral("accessibleDescription"),
                              QStringLiteral("bottomTextMargin"),
                              QStringLiteral("boxHeight"),
                              QStringLiteral("choose"),
                              QStringLiteral("clickByKey"),
                              QStringLiteral("content"),
                              QStringLiteral("describe"),
                              QStringLiteral("fillColor"),
                              QStringLiteral("fitList"),
                              QStringLiteral("fits"),
                              QStringLiteral("flipFocus"),
                              QStringLiteral("foundText"),
                              QStringLiteral("hasFocus"),
                              QStringLiteral("held"),
                              QStringLiteral("selectedDayOfMonth"),
                              QStringLiteral("servers"),
                              QStringLiteral("showCurrent"),
                              QStringLiteral("shownText"),
                              QStringLiteral("textHeight"),
                              QStringLiteral("textWidth"),
                              QStringLiteral("usable")};

const QString Introduction = QStringLiteral(
    "# The UI kit\n"
    "\n"
    "The components at `qrc:/ui_kit/qml/base/`, with their states in the light and in the dark\n"
    "palette. Defaults are those without a palette; a colour that a palette has a role for "
    "follows\n"
    "the palette. `pal` and `palette`, where a component has one, is the palette it paints with.\n"
    "\n"
    "`scripts/gallery` shows them all to be tried, and `scripts/gallery --docs` writes this text "
    "and\n"
    "its pictures.\n");

[[noreturn]] void Fail(const QString& file)
{
    throw std::runtime_error(file.toStdString() + " can not be written");
}

void WritePictures(const QDir& pictures)
{
    for (const auto& palette : PicturePalettes)
    {
        for (const auto& name : PageNames())
        {
            Gallery gallery(Gallery::Motion::Still, Gallery::Frame::Bare, palette);
            gallery.Show(name);
            gallery.Settle(Calm);
            const auto file = pictures.filePath(name + '-' + palette + ".png");
            if (!gallery.Picture().convertToFormat(QImage::Format_RGB888).save(file))
                Fail(file);
        }
    }
}

/// @param gallery  without a palette
QString Chapter(Gallery& gallery, const QString& name)
{
    QString text = "\n## " + name + "\n\n";
    const auto about = Gallery::about(name);
    if (!about.isEmpty())
        text += about + "\n\n";
    text += QStringLiteral(
                "| Light | Dark |\n|---|---|\n| ![%1, light](ui_kit/%1-light.png) | "
                "![%1, dark](ui_kit/%1-dark.png) |\n\n")
                .arg(name);
    if (!about.isEmpty())
        text += ComponentTable(gallery.Engine(), name, OwnBusiness);
    return text.trimmed().prepend('\n').append('\n');
}

}  // namespace

void WriteDocumentation(const QString& folder)
{
    const QDir pictures(folder + "/ui_kit");
    if (!pictures.mkpath(QStringLiteral(".")))
        Fail(pictures.path());
    WritePictures(pictures);

    auto text = Introduction;
    Gallery gallery(Gallery::Motion::Still, Gallery::Frame::Bare, QStringLiteral("none"));
    for (const auto& name : PageNames())
        text += Chapter(gallery, name);
    QSaveFile file(folder + "/ui_kit.md");
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit())
        Fail(file.fileName());
}

}  // namespace ui_kit_gallery
