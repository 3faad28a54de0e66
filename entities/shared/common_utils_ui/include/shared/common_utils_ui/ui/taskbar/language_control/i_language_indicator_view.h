#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <shared/common/utils/callable.h>

namespace common_utils_ui::taskbar::ui::controls::language_control {

/// The layout indicator as its presenter sees it. Belongs to the UI thread; presenters on other
/// threads call it through `QtInvoker`.
class ILanguageIndicatorView : public ::common::utils::ICallable
{
public:
    /// The layout of another locale is in force.
    /// @param locale  a code such as "ru-RU"; an unknown one counts as that, with a line in the log
    virtual void OnLocaleChanged(std::string_view locale) = 0;

    /// @param locales  the codes of the layouts on offer, in their order
    virtual void OnLocalesChanged(const std::vector<std::string>& locales) = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::language_control
