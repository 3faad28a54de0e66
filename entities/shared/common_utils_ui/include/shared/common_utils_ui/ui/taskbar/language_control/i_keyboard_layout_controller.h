#pragma once

#include <functional>
#include <string_view>

namespace common_utils_ui::taskbar::ui::controls::language_control {

/// The compositor's keyboard layouts. Belongs to the UI thread; a callback may be registered on any
/// thread.
class IKeyboardLayoutController
{
public:
    virtual ~IKeyboardLayoutController() = default;

    /// Asks the compositor to step to the next layout; the callback tells of the outcome. While the
    /// compositor offers no layouts the request is lost, with a warning.
    virtual void RequestLayoutChange() = 0;

    /// Asks the compositor to tell the current layout through the callback. Lost with a warning
    /// while the compositor offers no layouts; done by itself as soon as it does.
    virtual void QueryCurrentLayout() = 0;

    /// Takes the one callback; later ones are ignored.
    /// @param callback  called on the UI thread, without a lock, with the current layout's name in
    ///                  UTF-8 as the compositor gives it ("us", not a locale code) whenever the
    ///                  compositor tells of it, changed or not
    virtual void RegisterLayoutChangedCallback(std::function<void(std::string_view)> callback) = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::language_control
