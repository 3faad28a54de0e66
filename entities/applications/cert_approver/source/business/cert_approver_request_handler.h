#pragma once

#include <memory>

#include <component/cert_approver/i_cert_approver.h>
#include <shared/common_utils_ui/window/i_window.h>

#include "business/i_cert_approver_cert_data_interactor.h"
#include "business/i_cert_approver_verdict_interactor.h"

namespace cert_approver {

/// Serves one request: stores the certificate, shows the window and waits for the verdict. Runs on
/// the dispatcher's thread, which serves one request at a time; there is no queue of requests here.
class CertApproverRequestHandler final : public ICertApprover
{
public:
    /// @throws zin::CheckFailedException  a collaborator is null
    CertApproverRequestHandler(std::shared_ptr<interactors::ICertApproverCertDataSetter> certData,
                               std::shared_ptr<interactors::ICertApproverVerdictGetter> verdicts,
                               std::shared_ptr<windows::components::IWindow> window);

    int ApproveZrcCert(const certs::cert_service::CertData& certData,
                       Mode mode,
                       Verdict& verdict,
                       std::string& result) noexcept override;
    int ApproveCert(const certs::cert_service::CertData& certData,
                    Verdict& verdict) noexcept override;

private:
    std::shared_ptr<interactors::ICertApproverCertDataSetter> m_certDataSetter;
    std::shared_ptr<interactors::ICertApproverVerdictGetter> m_verdictGetter;
    std::shared_ptr<windows::components::IWindow> m_window;
};

}  // namespace cert_approver
