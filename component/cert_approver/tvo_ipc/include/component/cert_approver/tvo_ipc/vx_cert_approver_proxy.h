#pragma once

#include <string>

#include <component/cert_approver/cert_data.h>
#include <component/cert_approver/tvo_ipc/vx_cert_approver.h>
#include <shared/common/tvo/ipc/proxy/make_proxy.h>

namespace tvoipc::idl::stdcpp_v1::vx::cert_approver {

/// The interface vx.cert_approver.CertApprover for its callers. Enumerations are passed as they
/// travel. The calls have no time limit.
class CertApprover
{
public:
    /// @throws zin::CheckFailedException  when the certificate cannot be packed
    /// @throws std::runtime_error  "vx_cert_approver_CertApprover_ApproveZrcCert transport error"
    /// or
    ///         "... server error"
    virtual void ApproveZrcCert(const certs::cert_service::CertData& cert,
                                unsigned char mode,
                                unsigned char& verdict,
                                std::string& result) = 0;

    /// Throws as `ApproveZrcCert`, with this method's name.
    virtual void ApproveCert(const certs::cert_service::CertData& cert, unsigned char& verdict) = 0;

    virtual ~CertApprover() = default;
};

}  // namespace tvoipc::idl::stdcpp_v1::vx::cert_approver

namespace tvoipc_detail::idl_traits {

template <>
class Proxy<tvoipc::idl::stdcpp_v1::vx::cert_approver::CertApprover> final
    : public ProxyBase<tvoipc::idl::stdcpp_v1::vx::cert_approver::CertApprover>
{
public:
    using ProxyBase::ProxyBase;

    void ApproveZrcCert(const certs::cert_service::CertData& cert,
                        unsigned char mode,
                        unsigned char& verdict,
                        std::string& result) override;
    void ApproveCert(const certs::cert_service::CertData& cert, unsigned char& verdict) override;
};

}  // namespace tvoipc_detail::idl_traits
