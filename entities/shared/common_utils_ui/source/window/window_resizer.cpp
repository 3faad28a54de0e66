#include "window/window_resizer.h"

#include <algorithm>

#include <QGuiApplication>
#include <QScreen>

#include <component/logger/logger.h>
#include <shared/common_utils_ui/log/qt_formatters.h>
#include <shared/common_utils_ui/screen_info/screen_info.h>

namespace vdi::common_utils_ui::window {

WindowResizer::WindowResizer(QObject* parent) : QObject(parent)
{
    const auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (application == nullptr)
    {
        TVO_LOG_ERROR("Failed to connect WindowResizer to QGuiApplication");
        return;
    }
    for (const auto* screen : QGuiApplication::screens())
        connect(screen, &QScreen::geometryChanged, this, &WindowResizer::OnScreenGeometryChanged);
    connect(application, &QGuiApplication::screenAdded, this, &WindowResizer::OnScreenAdded);
    connect(application,
            &QGuiApplication::primaryScreenChanged,
            this,
            &WindowResizer::OnPrimaryScreenChanged);
}

void WindowResizer::RegisterWindow(Window window, Callback callback)
{
    if (Find(window) == m_windows.end())
        m_windows.emplace_back(std::move(window), std::move(callback));
}

void WindowResizer::UnregisterWindow(Window window)
{
    if (const auto entry = Find(window); entry != m_windows.end())
        m_windows.erase(entry);
}

QRect WindowResizer::GetPrimaryScreenGeometry() const
{
    return screen_info::GetLeftScreenGeometry();
}

void WindowResizer::OnScreenAdded(QScreen* screen)
{
    if (screen != nullptr)
        connect(screen, &QScreen::geometryChanged, this, &WindowResizer::OnScreenGeometryChanged);
    Update();
}

void WindowResizer::OnScreenGeometryChanged(QRect const&)
{
    Update();
}

void WindowResizer::OnPrimaryScreenChanged(QScreen*)
{
    Update();
}

std::vector<WindowResizer::Entry>::iterator WindowResizer::Find(const Window& window)
{
    return std::ranges::find(m_windows, window, &Entry::first);
}

void WindowResizer::Update()
{
    const auto geometry = GetPrimaryScreenGeometry();
    if (geometry.isNull())
        return;
    for (const auto& [window, callback] : m_windows)
    {
        if (!callback)
            continue;
        TVO_LOG_INFO("Resize window for {} to {}", fmt::ptr(window.get()), geometry);
        callback(window, geometry.width(), geometry.height());
    }
}

std::shared_ptr<IWindowResizer> CreateWindowResizer()
{
    return std::make_shared<WindowResizer>();
}

}  // namespace vdi::common_utils_ui::window
