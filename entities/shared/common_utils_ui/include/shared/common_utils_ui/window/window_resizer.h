#pragma once

#include <functional>
#include <memory>

#include <QRect>

#include <shared/common_utils_ui/window/i_window.h>

namespace vdi::common_utils_ui::window {

/// Keeps registered windows as large as the primary screen. For the UI thread only.
class IWindowResizer
{
public:
    using Window = std::shared_ptr<windows::components::IWindow>;
    using Callback = std::function<void(Window, int width, int height)>;

    virtual ~IWindowResizer() = default;

    /// Calls `callback` with the window and the screen's size after each change of the screens; not
    /// now: the caller gives the window its first size. A window that is registered already keeps
    /// its first callback. The window lives at least until it is unregistered. A callback must not
    /// register or unregister.
    virtual void RegisterWindow(Window window, Callback callback) = 0;

    /// Ignores an unknown window.
    virtual void UnregisterWindow(Window window) = 0;

    /// @returns a null rectangle where no screen lies at the origin
    [[nodiscard]] virtual QRect GetPrimaryScreenGeometry() const = 0;
};

/// Needs a QGuiApplication to follow the screens; without one the failure is logged and the resizer
/// never calls anybody.
std::shared_ptr<IWindowResizer> CreateWindowResizer();

}  // namespace vdi::common_utils_ui::window
