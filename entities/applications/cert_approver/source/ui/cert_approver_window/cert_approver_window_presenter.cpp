#include "ui/cert_approver_window/cert_approver_window_presenter.h"

#include <utility>

#include <component/cert_approver/cert_data.h>
#include <component/plk/exceptions.h>

namespace cert_approver::ui {

CertApproverWindowPresenter::CertApproverWindowPresenter(
    std::shared_ptr<interactors::ICertApproverCertDataGetter> certDataGetter,
    std::shared_ptr<interactors::ICertApproverVerdictSetter> verdictSetter,
    std::unique_ptr<ILanguageReader> languageReader)
    : m_certDataGetter(std::move(certDataGetter)),
      m_verdictSetter(std::move(verdictSetter)),
      m_languageReader(std::move(languageReader))
{
    ZIN_CHECK(m_certDataGetter != nullptr, "CertApproverCertDataGetter is null");
    ZIN_CHECK(m_verdictSetter != nullptr, "CertApproverVerdictSetter is null");
    ZIN_CHECK(m_languageReader != nullptr, "SystemLanguageInteractor is null");
}

void CertApproverWindowPresenter::SetView(ICertApproverWindowView* view) noexcept
{
    m_view = vdi::common_utils_ui::QtInvoker<ICertApproverWindowView>(view);
}

void CertApproverWindowPresenter::OnCloseActivated() noexcept
{
    Answer(Verdict::Close);
}

void CertApproverWindowPresenter::OnApproveActivated() noexcept
{
    Answer(Verdict::Approve);
}

void CertApproverWindowPresenter::OnShow() noexcept
{
    // The language goes first, so that the dates of this showing are formatted with it.
    UpdateSystemLanguage();

    // After a failure the record is shown as far as it goes: an empty dialog can still be refused.
    certs::cert_service::CertData certificate;
    m_certDataGetter->GetCertificateData(certificate);
    m_view.Invoke(&ICertApproverWindowView::SetCertificateData,
                  CertViewData{.issuer = std::move(certificate.issuer),
                               .subject = std::move(certificate.subject),
                               .validFrom = certificate.validFrom,
                               .validTo = certificate.validTo,
                               .fingerprint = std::move(certificate.fingerprint),
                               .address = std::move(certificate.address)});
}

void CertApproverWindowPresenter::OnHide() noexcept {}

void CertApproverWindowPresenter::UpdateSystemLanguage() noexcept
{
    m_view.Invoke(&ICertApproverWindowView::SetSystemLanguage, m_languageReader->ReadValue());
}

void CertApproverWindowPresenter::Answer(Verdict verdict) noexcept
{
    m_verdictSetter->SetUserVerdict(verdict);
    if (auto* view = m_view.Get(); view != nullptr)
    {
        view->Hide();
    }
}

}  // namespace cert_approver::ui
