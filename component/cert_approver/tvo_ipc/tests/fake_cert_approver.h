#pragma once

#include <functional>
#include <string>

#include <component/cert_approver/i_cert_approver.h>

namespace cert_approver::testing {

/// Answers as its test wants, and remembers the last mode that it was given.
class FakeCertApprover final : public ICertApprover
{
public:
    int ApproveZrcCert(const certs::cert_service::CertData& certData,
                       Mode givenMode,
                       Verdict& verdict,
                       std::string& text) noexcept override
    {
        mode = givenMode;
        text = result;
        return answer(certData, verdict);
    }

    int ApproveCert(const certs::cert_service::CertData& certData,
                    Verdict& verdict) noexcept override
    {
        return answer(certData, verdict);
    }

    std::function<int(const certs::cert_service::CertData& certData, Verdict& verdict)> answer;
    std::string result;
    Mode mode{};
};

}  // namespace cert_approver::testing
