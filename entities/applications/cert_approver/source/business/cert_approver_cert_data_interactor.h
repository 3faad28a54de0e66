#pragma once

#include <shared_mutex>

#include "business/i_cert_approver_cert_data_interactor.h"

namespace cert_approver::interactors {

/// Carries the latest certificate from the dispatcher's thread to the window. Any thread.
class CertApproverCertDataInteractor final : public ICertApproverCertDataSetter,
                                             public ICertApproverCertDataGetter
{
public:
    int SetCertificateData(const certs::cert_service::CertData& data) noexcept override;
    int GetCertificateData(certs::cert_service::CertData& data) const noexcept override;

private:
    mutable std::shared_mutex m_lock;
    certs::cert_service::CertData m_data;
};

}  // namespace cert_approver::interactors
