#pragma once

#include <string_view>

#include <shared/common/utils/callable.h>

#include "ui/cert_approver_window/cert_view_data.h"

namespace cert_approver::ui {

/// The window as its presenter sees it. All operations are for the Qt thread; other
/// threads reach them through a QtInvoker.
class ICertApproverWindowView : public ::common::utils::ICallable
{
public:
    virtual void SetCertificateData(const CertViewData& data) noexcept = 0;
    virtual void Hide() noexcept = 0;

    /// @param language  locale name for the formatting of dates; takes effect at the next
    ///                  `SetCertificateData`
    virtual void SetSystemLanguage(std::string_view language) noexcept = 0;
};

}  // namespace cert_approver::ui
