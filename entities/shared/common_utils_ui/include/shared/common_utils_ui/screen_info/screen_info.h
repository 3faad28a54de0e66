#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

class QScreen;

/// Questions about the screens of this moment. The screen at the origin of the desktop is the left
/// one and counts as primary; every other one is a right one, whatever its actual place. Sizes and
/// positions are device-independent pixels. For the UI thread only.
namespace vdi::common_utils_ui::screen_info {

/// What a widget lies over. All widgets are as large as the left screen today.
enum class EmplacementMode
{
    FullScreen,
    WorkArea
};

/// @returns the first screen at the origin, or null
QScreen* GetLeftScreen();
/// @returns the first screen away from the origin, or null
QScreen* GetRightScreen();

QPoint GetLeftScreenPosition();
/// @returns a null rectangle where there is no left screen
QRect GetLeftScreenGeometry();
/// @returns a size of (-1, -1) where there is no left screen
QSize GetLeftScreenResolution();

QRect GetDefaultScreenGeometry();
QSize GetDefaultScreenResolution();
QSize GetWidgetSize(EmplacementMode mode);

/// @param all  true for what all screens cover together, false for the first screen alone
/// @returns a null rectangle where there is no screen
QRect GetDesktopGeometry(bool all);

/// Screens without a name are not counted: a placeholder for a missing output has none.
int GetMonitorsCount();

}  // namespace vdi::common_utils_ui::screen_info
