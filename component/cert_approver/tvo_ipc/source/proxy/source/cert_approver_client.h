#pragma once

#include <string>

#include <component/cert_approver/tvo_ipc/client.h>
#include <component/cert_approver/tvo_ipc/vx_cert_approver_proxy.h>

namespace cert_approver::proxy {

/// Speaks the domain's types over the interface's own proxy.
class CertApproverClient final : public ICertApproverClient
{
public:
    using Generated = tvoipc::idl::stdcpp_v1::vx::cert_approver::CertApprover;

    /// @throws zin::CheckFailedException  for a null proxy
    explicit CertApproverClient(tvoipc::ProxyPtr<Generated> proxy);

    void ApproveZrcCert(const certs::cert_service::CertData& certData,
                        Mode mode,
                        Verdict& verdict,
                        std::string& result) override;
    void ApproveCert(const certs::cert_service::CertData& certData, Verdict& verdict) override;

private:
    tvoipc::ProxyPtr<Generated> m_proxy;
};

}  // namespace cert_approver::proxy
