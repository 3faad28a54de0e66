#include "business/cert_approver_request_handler.h"

#include <utility>

#include <component/plk/exceptions.h>
#include <component/plk/result_codes.h>

namespace cert_approver {

CertApproverRequestHandler::CertApproverRequestHandler(
    std::shared_ptr<interactors::ICertApproverCertDataSetter> certData,
    std::shared_ptr<interactors::ICertApproverVerdictGetter> verdicts,
    std::shared_ptr<windows::components::IWindow> window)
    : m_certDataSetter(std::move(certData)),
      m_verdictGetter(std::move(verdicts)),
      m_window(std::move(window))
{
    ZIN_CHECK(m_certDataSetter != nullptr, "CertApproverCertDataSetter is null");
    ZIN_CHECK(m_verdictGetter != nullptr, "ICertApproverVerdictGetter is null");
    ZIN_CHECK(m_window != nullptr, "IWindowPtr is null");
}

int CertApproverRequestHandler::ApproveZrcCert(const certs::cert_service::CertData& certData,
                                               Mode /*mode*/,
                                               Verdict& verdict,
                                               std::string& /*result*/) noexcept
{
    return ApproveCert(certData, verdict);
}

int CertApproverRequestHandler::ApproveCert(const certs::cert_service::CertData& certData,
                                            Verdict& verdict) noexcept
{
    if (m_certDataSetter->SetCertificateData(certData) < 0)
    {
        return plk::codes::UnspecifiedError;
    }
    m_window->Show();
    // What a caller reads after a success without a verdict, which only a closed queue gives.
    verdict = Verdict::Approve;
    return m_verdictGetter->GetUserVerdict(verdict);
}

}  // namespace cert_approver
