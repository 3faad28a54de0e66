#pragma once

#include <component/cert_approver/cert_data.h>

namespace cert_approver::interactors {

/// Takes the certificate of the request being served.
class ICertApproverCertDataSetter
{
public:
    virtual ~ICertApproverCertDataSetter() = default;

    /// @returns a result code; after a failure, which is logged, the record may be half new
    virtual int SetCertificateData(const certs::cert_service::CertData& data) noexcept = 0;
};

/// Gives the certificate of the latest request; an empty one before the first.
class ICertApproverCertDataGetter
{
public:
    virtual ~ICertApproverCertDataGetter() = default;

    /// @returns a result code; after a failure, which is logged, `data` may be half filled
    virtual int GetCertificateData(certs::cert_service::CertData& data) const noexcept = 0;
};

}  // namespace cert_approver::interactors
