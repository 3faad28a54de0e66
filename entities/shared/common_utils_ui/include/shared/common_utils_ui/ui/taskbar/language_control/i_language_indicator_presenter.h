#pragma once

#include <string>

namespace common_utils_ui::taskbar::ui::controls::language_control {

class ILanguageIndicatorView;

/// Connects the layout indicator with what changes the layout. Called by its view, on the UI
/// thread.
class ILanguageIndicatorPresenter
{
public:
    virtual ~ILanguageIndicatorPresenter() = default;

    /// @param view  the view to serve, or null when it goes; not owned
    virtual void SetView(ILanguageIndicatorView* view) = 0;

    /// The user picked a layout.
    /// @param locale  the code of its locale, "ru-RU" for instance
    virtual void ChangeLocale(std::string locale) = 0;

    /// The taskbar has come up.
    virtual void OnShow() = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::language_control
