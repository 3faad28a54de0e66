#include "business/cert_approver_cert_data_interactor.h"

#include <mutex>

#include <component/logger/logger.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_codes.h>

namespace cert_approver::interactors {

int CertApproverCertDataInteractor::SetCertificateData(
    const certs::cert_service::CertData& data) noexcept
{
    try
    {
        const std::unique_lock lock(m_lock);
        m_data = data;
        return plk::codes::Ok;
    }
    catch (...)
    {
        const auto [code, message] = plk::utils::ProcessException();
        TVO_LOG_ERROR("Failed to set certificate data with code={}, message: '{}'", code, message);
        return plk::codes::UnspecifiedError;
    }
}

int CertApproverCertDataInteractor::GetCertificateData(
    certs::cert_service::CertData& data) const noexcept
{
    try
    {
        const std::shared_lock lock(m_lock);
        data = m_data;
        return plk::codes::Ok;
    }
    catch (...)
    {
        const auto [code, message] = plk::utils::ProcessException();
        TVO_LOG_ERROR("Failed to get certificate data with code={}, message: '{}'", code, message);
        return plk::codes::UnspecifiedError;
    }
}

}  // namespace cert_approver::interactors
