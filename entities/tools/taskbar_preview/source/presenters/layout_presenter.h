#pragma once

#include <chrono>
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
    /// @param patience    a request without an answer for so long is lost, and the wish with it
    LayoutPresenter(std::unique_ptr<language_control::IKeyboardLayoutController> controller,
                    std::vector<std::string> locales,
                    std::function<void(bool)> setShown,
                    std::chrono::milliseconds patience = std::chrono::seconds(1));

    void ChangeLocale(std::string locale) override;
    void OnShow() override;

private:
    void OnLayoutChanged(std::string_view layout);

    /// Whether a request has still to be answered and leads on to what was picked.
    [[nodiscard]] bool IsOnTheWay() const;
    void Step();

    std::unique_ptr<language_control::IKeyboardLayoutController> m_controller;
    std::vector<std::string> m_locales;
    std::function<void(bool)> m_setShown;
    std::chrono::milliseconds m_patience;
    bool m_isTold = false;  ///< whether the compositor has named a layout
    std::string m_wanted;   ///< the locale that was picked, empty when it is there or given up
    int m_stepsLeft = 0;
    std::chrono::steady_clock::time_point m_answerDue;
};

}  // namespace taskbar_preview
