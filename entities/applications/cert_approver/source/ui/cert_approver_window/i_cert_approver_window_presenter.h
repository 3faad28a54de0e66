#pragma once

namespace cert_approver::ui {

class ICertApproverWindowView;

/// The logic behind the window. Owned by the view, to which it points back.
class ICertApproverWindowPresenter
{
public:
    virtual ~ICertApproverWindowPresenter() = default;

    /// @param view  null before the view goes
    virtual void SetView(ICertApproverWindowView* view) noexcept = 0;

    virtual void OnCloseActivated() noexcept = 0;
    virtual void OnApproveActivated() noexcept = 0;
    virtual void OnShow() noexcept = 0;
    virtual void OnHide() noexcept = 0;
};

}  // namespace cert_approver::ui
