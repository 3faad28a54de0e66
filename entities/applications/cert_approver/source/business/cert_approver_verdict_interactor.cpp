#include "business/cert_approver_verdict_interactor.h"

#include <component/logger/logger.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_codes.h>

namespace cert_approver::interactors {

CertApproverVerdictInteractor::CertApproverVerdictInteractor()
    : m_queue(std::make_unique<VerdictQueue>())
{}

int CertApproverVerdictInteractor::SetUserVerdict(Verdict verdict) noexcept
{
    try
    {
        m_queue->Push(verdict);
        return plk::codes::Ok;
    }
    catch (...)
    {
        const auto [code, message] = plk::utils::ProcessException();
        TVO_LOG_ERROR("Failed to push user decision with code={}, message: '{}'", code, message);
        return plk::codes::UnspecifiedError;
    }
}

int CertApproverVerdictInteractor::GetUserVerdict(Verdict& verdict) const noexcept
{
    try
    {
        m_queue->Pop(verdict);
        return plk::codes::Ok;
    }
    catch (...)
    {
        const auto [code, message] = plk::utils::ProcessException();
        TVO_LOG_ERROR("Failed to get user decision with code={}, message: '{}'", code, message);
        return plk::codes::UnspecifiedError;
    }
}

}  // namespace cert_approver::interactors
