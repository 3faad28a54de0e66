#pragma once

#include <string>

#include <component/cert_approver/cert_data.h>
#include <component/cert_approver/verdict.h>

namespace cert_approver {

/// The approval service as the code behind the stub sees it. One call at a time, on the thread of
/// the dispatcher; a call lasts until a person has answered.
class ICertApprover
{
public:
    virtual ~ICertApprover() = default;

    /// Does what `ApproveCert` does.
    /// @param result  a text that is returned to the caller beside the verdict
    /// @returns a result code; when it is negative, `verdict` is what stood there or a preset
    virtual int ApproveZrcCert(const certs::cert_service::CertData& certData,
                               Mode mode,
                               Verdict& verdict,
                               std::string& result) noexcept = 0;

    /// Asks a person about the certificate and waits for the answer without a limit.
    /// @returns a result code; when it is negative, `verdict` is what stood there or a preset
    virtual int ApproveCert(const certs::cert_service::CertData& certData,
                            Verdict& verdict) noexcept = 0;
};

}  // namespace cert_approver
