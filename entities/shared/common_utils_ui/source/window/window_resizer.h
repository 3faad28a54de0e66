#pragma once

#include <utility>
#include <vector>

#include <QObject>

#include <shared/common_utils_ui/window/window_resizer.h>

class QScreen;

namespace vdi::common_utils_ui::window {

/// Listens to the application's screens. A screen that goes is noticed only where the primary one
/// changes with it.
class WindowResizer : public QObject, public IWindowResizer
{
    Q_OBJECT

public:
    explicit WindowResizer(QObject* parent = nullptr);

    void RegisterWindow(Window window, Callback callback) override;
    void UnregisterWindow(Window window) override;
    [[nodiscard]] QRect GetPrimaryScreenGeometry() const override;

private slots:
    void OnScreenAdded(QScreen* screen);
    void OnScreenGeometryChanged(QRect const& geometry);
    void OnPrimaryScreenChanged(QScreen* screen);

private:
    using Entry = std::pair<Window, Callback>;

    std::vector<Entry>::iterator Find(const Window& window);
    void Update();

    std::vector<Entry> m_windows;
};

}  // namespace vdi::common_utils_ui::window
