#pragma once

#include <memory>

#include "business/i_cert_approver_verdict_interactor.h"
#include "business/verdict_queue.h"

namespace cert_approver::interactors {

/// Carries the user's verdicts from the Qt thread to the blocked caller. Any thread.
class CertApproverVerdictInteractor final : public ICertApproverVerdictSetter,
                                            public ICertApproverVerdictGetter
{
public:
    CertApproverVerdictInteractor();

    int SetUserVerdict(Verdict verdict) noexcept override;
    int GetUserVerdict(Verdict& verdict) const noexcept override;

private:
    std::unique_ptr<VerdictQueue> m_queue;
};

}  // namespace cert_approver::interactors
