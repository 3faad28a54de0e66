#pragma once

#include <memory>

#include <shared/common_utils_ui/ui/taskbar/language_control/i_keyboard_layout_controller.h>

namespace common_utils_ui::taskbar::ui::controls::language_control {

/// Makes a controller that speaks `tvo_keyboard` (see protocol/tvo_keyboard.xml) with the
/// compositor. It looks for the compositor's offer on the next turn of the event loop, and whenever
/// an offer comes later.
/// @throws zin::CheckFailedException  there is no QGuiApplication on a Wayland platform
/// @note to be called on the UI thread; the QGuiApplication must outlive the controller
std::unique_ptr<IKeyboardLayoutController> CreateKeyboardLayoutController();

}  // namespace common_utils_ui::taskbar::ui::controls::language_control
