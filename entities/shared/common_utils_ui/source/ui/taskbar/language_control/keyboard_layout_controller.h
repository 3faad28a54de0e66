#pragma once

#include <cstdint>
#include <functional>
#include <shared_mutex>
#include <string_view>

#include <QtWaylandClient/QWaylandClientExtension>
#include <qwayland-tvo-keyboard.h>

#include <shared/common_utils_ui/ui/taskbar/language_control/i_keyboard_layout_controller.h>

namespace common_utils_ui::taskbar::ui::controls::language_control {

/// The client's end of `tvo_keyboard`. Active while the compositor offers the global.
class KeyboardLayoutController final
    : public QWaylandClientExtensionTemplate<KeyboardLayoutController>,
      public IKeyboardLayoutController,
      public QtWayland::tvo_keyboard
{
    Q_OBJECT

public:
    KeyboardLayoutController();
    ~KeyboardLayoutController() override;

    void RequestLayoutChange() override;
    void QueryCurrentLayout() override;
    void RegisterLayoutChangedCallback(std::function<void(std::string_view)> callback) override;

protected:
    void tvo_keyboard_update_layout(std::uint32_t group, const QString& layouts) override;

private slots:
    void handleExtensionActive();

private:
    void UpdateLayout(std::uint32_t group, const QString& layouts) const;
    [[nodiscard]] std::function<void(std::string_view)> Callback() const;

    std::function<void(std::string_view)> m_callback;
    mutable std::shared_mutex m_callbackMutex;
};

}  // namespace common_utils_ui::taskbar::ui::controls::language_control
