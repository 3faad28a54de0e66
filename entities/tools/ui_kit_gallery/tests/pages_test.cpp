#include <QAccessible>
#include <QGuiApplication>
#include <QQuickItem>
#include <QRegularExpression>
#include <gmock/gmock.h>

#include <component/logger/logger.h>

#include "component_table.h"
#include "gallery.h"
#include "page_list.h"

namespace ui_kit_gallery {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAreArray;

struct KnownLine
{
    const char* page;
    const char* palettes;
    const char* words;
};

/// What the kit's components write by their nature, word by word, without the lines of their
/// documents. Nothing else may be written, and none of it may be missing.
constexpr KnownLine KnownLines[] = {
    {"ComboBox",
     "light dark none",
     "qrc:/ui_kit/qml/base/ComboBox.qml: ReferenceError: tooltipComponent is not defined"},
    {"TextEdit",
     "none",
     "qrc:/ui_kit/qml/base/TextEdit.qml: TypeError: Cannot read property 'purplePrimary' of null"},
};

std::vector<std::string> KnownLinesOf(const QString& page, const QString& palette)
{
    std::vector<std::string> lines;
    for (const auto& line : KnownLines)
    {
        if (page == line.page && QString(line.palettes).split(' ').contains(palette))
            lines.emplace_back(line.words);
    }
    return lines;
}

/// Keeps what Qt and the documents write, each line once, for as long as it lives.
class ConsoleWatch
{
public:
    ConsoleWatch()
    {
        s_lines.clear();
        qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& text)
            {
                static const QRegularExpression place(QStringLiteral("(\\.qml)(:-?\\d+)+"));
                const auto line = QString(text).replace(place, QStringLiteral("\\1"));
                if (!s_lines.contains(line))
                    s_lines.push_back(line);
            });
    }
    ~ConsoleWatch()
    {
        qInstallMessageHandler(nullptr);
    }
    ConsoleWatch(const ConsoleWatch&) = delete;
    ConsoleWatch& operator=(const ConsoleWatch&) = delete;

    [[nodiscard]] static std::vector<std::string> Lines()
    {
        std::vector<std::string> lines;
        for (const auto& line : s_lines)
            lines.push_back(line.toStdString());
        return lines;
    }

private:
    static inline QStringList s_lines;
};

std::vector<std::string> AllPages()
{
    std::vector<std::string> names;
    for (const auto& name : PageNames())
        names.push_back(name.toStdString());
    return names;
}

class Pages : public testing::TestWithParam<std::string>
{
protected:
    ~Pages() override
    {
        // The software renderer keeps the textures of images that are cached, for a frame longer.
        QQuickWindow window;
        window.show();
        window.releaseResources();
        window.grabWindow();
    }
};

INSTANTIATE_TEST_SUITE_P(Gallery,
                         Pages,
                         testing::ValuesIn(AllPages()),
                         [](const auto& page) { return page.param; });

TEST_P(Pages, ComeUpInEachPaletteAndWriteNothing)
{
    const auto page = QString::fromStdString(GetParam());
    QList<QImage> pictures;
    for (const auto& palette : PaletteChoice::Names())
    {
        SCOPED_TRACE(palette.toStdString());
        const ConsoleWatch console;
        for (const auto frame : {Gallery::Frame::Bare, Gallery::Frame::Window})
        {
            Gallery gallery(Gallery::Motion::Still, frame, palette);
            gallery.Show(page);
            gallery.Settle(150ms);
            const auto picture = gallery.Picture();
            EXPECT_GE(picture.height(), 80);
            EXPECT_FALSE(pictures.contains(picture) && frame == Gallery::Frame::Window);
            pictures.push_back(picture);
        }
        EXPECT_THAT(ConsoleWatch::Lines(), ElementsAreArray(KnownLinesOf(page, palette)));
    }
}

/// What the keyboard reaches under an item.
QList<QQuickItem*> TabStopsUnder(const QQuickItem& item)
{
    QList<QQuickItem*> stops;
    for (auto* child : item.childItems())
    {
        if (!child->isVisible() || !child->isEnabled())
            continue;
        if (child->activeFocusOnTab())
            stops.push_back(child);
        stops += TabStopsUnder(*child);
    }
    return stops;
}

TEST_P(Pages, NameWhatTheKeyboardReaches)
{
    Gallery gallery(Gallery::Motion::Still, Gallery::Frame::Bare, QStringLiteral("dark"));
    gallery.Show(QString::fromStdString(GetParam()));
    gallery.Settle(150ms);
    for (auto* window : QGuiApplication::topLevelWindows())
    {
        auto* const quick = qobject_cast<QQuickWindow*>(window);
        if (quick == nullptr)
            continue;
        for (auto* stop : TabStopsUnder(*quick->contentItem()))
        {
            SCOPED_TRACE(stop->metaObject()->className());
            auto* const told = QAccessible::queryAccessibleInterface(stop);
            ASSERT_NE(told, nullptr);
            EXPECT_NE(told->role(), QAccessible::NoRole);
            EXPECT_NE(told->role(), QAccessible::Client);
            EXPECT_FALSE(told->text(QAccessible::Name).isEmpty());
        }
    }
}

TEST(ComponentTable, TellsWhatTheComponentDeclares)
{
    Gallery gallery(Gallery::Motion::Still, Gallery::Frame::Bare, QStringLiteral("none"));
    const auto table =
        ComponentTable(gallery.Engine(), QStringLiteral("CloseButton"), {QStringLiteral("pal")});
    EXPECT_EQ(table.toStdString(),
              "40 by 40 by itself.\n"
              "\n"
              "| Property | Type | Default |\n"
              "|---|---|---|\n"
              "| `defaultIcon` | string | `\"qrc:/ui_kit/images/close_icon\"` |\n"
              "| `buttonSize` | int | `40` |\n"
              "| `iconSize` | int | `16` |\n"
              "| `radius` | int | `12` |\n"
              "| `icon` | url | `\"qrc:/ui_kit/images/close_icon\"` |\n"
              "| `activeButtonFocus` | bool, read-only | `false` |\n"
              "| `hovered` | bool, read-only | `false` |\n"
              "\n"
              "Signals: `activated()`\n\n");
}

}  // namespace
}  // namespace ui_kit_gallery

int main(int argc, char** argv)
{
    tvo::logger::TVOLogger::Setup("UI_KIT", tvo::logger::LogLevel::Off, nullptr);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
