#include "ui/taskbar/language_control/keyboard_layout_controller.h"

#include <memory>
#include <mutex>
#include <utility>

#include <QByteArray>
#include <QGuiApplication>
#include <QMetaObject>
#include <QStringList>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <shared/common_utils_ui/log/qt_formatters.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/create_keyboard_layout_controller.h>

namespace common_utils_ui::taskbar::ui::controls::language_control {

namespace {

constexpr int ProtocolVersion = 1;

}  // namespace

KeyboardLayoutController::KeyboardLayoutController()
    : QWaylandClientExtensionTemplate(ProtocolVersion)
{
    connect(this,
            &KeyboardLayoutController::activeChanged,
            this,
            &KeyboardLayoutController::handleExtensionActive);
}

KeyboardLayoutController::~KeyboardLayoutController()
{
    // The binding leaves its proxy alive, and the next event would be handed to a dead object.
    if (isActive())
    {
        tvo_keyboard_destroy(object());
    }
}

void KeyboardLayoutController::RequestLayoutChange()
{
    if (!isActive())
    {
        TVO_LOG_WARNING("RequestLayoutChange on uninitialized object");
        return;
    }
    change_layout();
}

void KeyboardLayoutController::QueryCurrentLayout()
{
    if (!isActive())
    {
        TVO_LOG_WARNING("QueryCurrentLayout on uninitialized object");
        return;
    }
    query_layout();
}

void KeyboardLayoutController::RegisterLayoutChangedCallback(
    std::function<void(std::string_view)> callback)
{
    const std::unique_lock lock(m_callbackMutex);
    if (!m_callback)
    {
        m_callback = std::move(callback);
    }
}

void KeyboardLayoutController::tvo_keyboard_update_layout(std::uint32_t group,
                                                          const QString& layouts)
{
    UpdateLayout(group, layouts);
}

void KeyboardLayoutController::handleExtensionActive()
{
    if (!isActive())
    {
        // The offer is withdrawn; a later one brings a proxy of its own.
        tvo_keyboard_destroy(object());
        return;
    }
    QMetaObject::invokeMethod(
        this, [this] { QueryCurrentLayout(); }, Qt::QueuedConnection);
}

void KeyboardLayoutController::UpdateLayout(std::uint32_t group, const QString& layouts) const
{
    const auto callback = Callback();
    if (!callback)
    {
        return;
    }
    const QStringList names = layouts.split(QLatin1Char(','));
    if (group >= static_cast<std::size_t>(names.size()))
    {
        TVO_LOG_ERROR("Invalid layout group: {} for layouts: {}", group, layouts);
        return;
    }
    const QByteArray name = names.at(static_cast<qsizetype>(group)).toUtf8();
    callback(std::string_view(name.constData(), static_cast<std::size_t>(name.size())));
}

std::function<void(std::string_view)> KeyboardLayoutController::Callback() const
{
    const std::shared_lock lock(m_callbackMutex);
    return m_callback;
}

std::unique_ptr<IKeyboardLayoutController> CreateKeyboardLayoutController()
{
    // Qt's extension takes any other platform for Wayland's, and crashes.
    ZIN_CHECK(QGuiApplication::platformName().startsWith(QLatin1String("wayland")),
              "Keyboard layouts are there in a Wayland session only");
    return std::make_unique<KeyboardLayoutController>();
}

}  // namespace common_utils_ui::taskbar::ui::controls::language_control
