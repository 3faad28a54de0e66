#pragma once

#include <string_view>

#include <component/plk/timestamp.h>
#include <shared/common/utils/callable.h>

namespace common_utils_ui::taskbar::ui::controls::datetime_control {

/// The clock as its presenter sees it. Belongs to the UI thread; presenters on other threads call
/// it through `QtInvoker`.
class IDateTimeControlView : public ::common::utils::ICallable
{
public:
    /// @param timestamp  microseconds since 1970-01-01 00:00 UTC; shown in the terminal's time zone
    virtual void SetDateTime(plk::types::Timestamp timestamp) = 0;

    /// Takes effect on each caption when that is made anew: on the date's with the next day, on the
    /// time's with the next timestamp.
    /// @param language  a locale name in UTF-8
    virtual void SetSystemLanguage(std::string_view language) = 0;
};

}  // namespace common_utils_ui::taskbar::ui::controls::datetime_control
