#pragma once

#include <memory>
#include <string>

#include <shared/common_utils/settings/i_sm_setting_reader.h>
#include <shared/common_utils_ui/qt_invoker.h>

#include "business/i_cert_approver_cert_data_interactor.h"
#include "business/i_cert_approver_verdict_interactor.h"
#include "ui/cert_approver_window/i_cert_approver_window_presenter.h"
#include "ui/cert_approver_window/i_cert_approver_window_view.h"

namespace cert_approver::ui {

/// Brings the latest certificate to the view when it is shown, and the user's answer to the caller.
/// `OnShow` may run on any thread, the rest on the Qt thread.
class CertApproverWindowPresenter final : public ICertApproverWindowPresenter
{
public:
    using ILanguageReader = vdi::common_utils::settings::ISmSettingReader<std::string>;

    /// @throws zin::CheckFailedException  a collaborator is null
    CertApproverWindowPresenter(
        std::shared_ptr<interactors::ICertApproverCertDataGetter> certDataGetter,
        std::shared_ptr<interactors::ICertApproverVerdictSetter> verdictSetter,
        std::unique_ptr<ILanguageReader> languageReader);

    void SetView(ICertApproverWindowView* view) noexcept override;
    void OnCloseActivated() noexcept override;
    void OnApproveActivated() noexcept override;
    void OnShow() noexcept override;
    void OnHide() noexcept override;

private:
    void UpdateSystemLanguage() noexcept;
    void Answer(Verdict verdict) noexcept;

    std::shared_ptr<interactors::ICertApproverCertDataGetter> m_certDataGetter;
    std::shared_ptr<interactors::ICertApproverVerdictSetter> m_verdictSetter;
    std::unique_ptr<ILanguageReader> m_languageReader;
    vdi::common_utils_ui::QtInvoker<ICertApproverWindowView> m_view;
};

}  // namespace cert_approver::ui
