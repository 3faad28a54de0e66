#pragma once

#include <component/nvl/path.h>

namespace common_utils_ui::taskbar::ui::controls::language_control {

/// Where the terminal keeps its keyboard layouts and the one that is wanted, beside its language.
/// For presenters: nothing here reads them.
inline const nvl::Path KeyboardLayoutsPath{"profiles", "locale", "keyboard.layouts"};
inline const nvl::Path DesiredKeyboardLayoutPath{"profiles", "locale", "keyboard.desired.layout"};

}  // namespace common_utils_ui::taskbar::ui::controls::language_control
