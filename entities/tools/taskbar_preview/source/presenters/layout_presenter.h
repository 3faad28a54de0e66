#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <shared/common_utils_ui/ui/taskbar/language_control/i_keyboard_layout_controller.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/i_language_indicator_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/i_language_indicator_view.h>

#include "presenter.h"

namespace taskbar_preview {

namespace language_control = ::common_utils_ui::taskbar::ui::controls::language_control;

/// Brings together the layout control, which speaks of locales, and the compositor, which speaks of
/// layouts of xkb and can only be asked for the next one.
class LayoutPresenter final : public Presenter<language_control::ILanguageIndicatorPresenter,
                                               language_control::ILanguageIndicatorView>
{
public:
    /// @param controller  null where there is no compositor
    /// @param locales     the codes on offer
    /// @param setShown    told whether there is a layout to show, once the compositor has named one
    LayoutPresenter(std::unique_ptr<language_control::IKeyboardLayoutController> controller,
                    std::vector<std::string> locales,
                    std::function<void(bool)> setShown);

    void ChangeLocale(std::string locale) override;
    void OnShow() override;

private:
    void OnLayoutChanged(std::string_view layout);
    void StepOn();

    std::unique_ptr<language_control::IKeyboardLayoutController> m_controller;
    std::vector<std::string> m_locales;
    std::function<void(bool)> m_setShown;
    std::string m_layout;  ///< the current one, empty until it is known
    std::string m_wanted;  ///< the locale on the way to which we are, empty when we are there
    std::string m_origin;  ///< the layout from which we set out: there again, there is no way
};

}  // namespace taskbar_preview
