#include <QScreen>
#include <QTemporaryFile>
#include <gtest/gtest.h>

#include <shared/common_utils_ui/screen_info/screen_info.h>

#include "gui_application.h"

namespace vdi::common_utils_ui::screen_info {
namespace {

const QRect None;
const QRect Small{0, 0, 1280, 800};
const QRect Beside{1280, 0, 1920, 1080};
const QRect Above{0, -1080, 1920, 1080};
const QRect Off{1, 0, 1920, 1080};

/// Which of the screens, in the order of their list, is which; the first of them has no name.
struct Row
{
    QList<QRect> screens;
    QRect left;
    QRect right;
    QRect all;
};

const Row Rows[] = {
    {{}, None, None, None},
    {{Small}, Small, None, Small},
    {{Beside, Small}, Small, Beside, {0, 0, 3200, 1080}},
    {{Small, Above, Beside}, Small, Above, {0, -1080, 3200, 2160}},
    {{Off}, None, Off, Off},
};

/// An application whose platform has such screens.
GuiApplication MakeApplication(const QList<QRect>& areas)
{
    QStringList screens;
    for (const auto& area : areas)
    {
        // The platform lists its screens from the last one to the first.
        screens.prepend(QStringLiteral(R"({"name":"%1","x":%2,"y":%3,"width":%4,"height":%5})")
                            .arg(screens.empty() ? QString{} : QString::number(screens.size()))
                            .arg(area.x())
                            .arg(area.y())
                            .arg(area.width())
                            .arg(area.height()));
    }
    QTemporaryFile file;
    file.open();
    file.write("{\"screens\":[" + screens.join(",").toUtf8() + "]}");
    file.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
    return {};
}

TEST(Screens, AreToldApartByTheirPlace)
{
    for (const auto& row : Rows)
    {
        SCOPED_TRACE(row.screens.size());
        const auto application = MakeApplication(row.screens);
        EXPECT_EQ(GetLeftScreenGeometry(), row.left);
        const auto size = row.left.isNull() ? QSize(-1, -1) : row.left.size();
        EXPECT_EQ(GetLeftScreenResolution(), size);
        EXPECT_EQ(GetWidgetSize(EmplacementMode::WorkArea), size);
        const auto* right = GetRightScreen();
        EXPECT_EQ(right == nullptr ? None : right->geometry(), row.right);
        EXPECT_EQ(GetDesktopGeometry(false), row.screens.value(0));
        EXPECT_EQ(GetDesktopGeometry(true), row.all);
        EXPECT_EQ(GetMonitorsCount(), std::max<qsizetype>(row.screens.size() - 1, 0));
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

}  // namespace
}  // namespace vdi::common_utils_ui::screen_info
