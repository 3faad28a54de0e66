#include <algorithm>
#include <numeric>

#include <QGuiApplication>
#include <QScreen>

#include <shared/common_utils_ui/screen_info/screen_info.h>

namespace vdi::common_utils_ui::screen_info {
namespace {

bool IsAtOrigin(const QScreen* screen)
{
    return screen->geometry().topLeft() == QPoint{0, 0};
}

}  // namespace

QScreen* GetLeftScreen()
{
    const auto screens = QGuiApplication::screens();
    const auto found = std::ranges::find_if(screens, IsAtOrigin);
    return found == screens.end() ? nullptr : *found;
}

QScreen* GetRightScreen()
{
    const auto screens = QGuiApplication::screens();
    const auto found = std::ranges::find_if_not(screens, IsAtOrigin);
    return found == screens.end() ? nullptr : *found;
}

QPoint GetLeftScreenPosition()
{
    return {0, 0};
}

QRect GetLeftScreenGeometry()
{
    const auto* screen = GetLeftScreen();
    return screen == nullptr ? QRect{} : screen->geometry();
}

QSize GetLeftScreenResolution()
{
    const auto* screen = GetLeftScreen();
    return screen == nullptr ? QSize{} : screen->size();
}

QRect GetDefaultScreenGeometry()
{
    return GetLeftScreenGeometry();
}

QSize GetDefaultScreenResolution()
{
    return GetLeftScreenResolution();
}

QSize GetWidgetSize(EmplacementMode)
{
    return GetLeftScreenResolution();
}

QRect GetDesktopGeometry(bool all)
{
    const auto screens = QGuiApplication::screens();
    if (screens.empty())
        return {};
    if (!all)
        return screens.front()->geometry();
    return std::accumulate(screens.begin(),
                           screens.end(),
                           QRect{},
                           [](const QRect& sum, const QScreen* screen)
                           { return sum | screen->geometry(); });
}

int GetMonitorsCount()
{
    const auto screens = QGuiApplication::screens();
    return static_cast<int>(std::ranges::count_if(
        screens, [](const QString& name) { return !name.isEmpty(); }, &QScreen::name));
}

}  // namespace vdi::common_utils_ui::screen_info
