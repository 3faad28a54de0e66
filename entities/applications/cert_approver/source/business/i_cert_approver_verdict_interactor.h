#pragma once

#include <component/cert_approver/verdict.h>

namespace cert_approver::interactors {

/// Takes what the user has answered.
class ICertApproverVerdictSetter
{
public:
    virtual ~ICertApproverVerdictSetter() = default;

    /// @returns a result code; a failure is logged and leaves the waiting caller waiting
    virtual int SetUserVerdict(Verdict verdict) noexcept = 0;
};

/// Gives the answers in the order in which they were made. An answer belongs to no request: one
/// that was given while nobody asked goes to the next who does.
class ICertApproverVerdictGetter
{
public:
    virtual ~ICertApproverVerdictGetter() = default;

    /// Waits for an answer without a limit.
    /// @returns a result code; after a failure, which is logged, `verdict` is as it was
    virtual int GetUserVerdict(Verdict& verdict) const noexcept = 0;
};

}  // namespace cert_approver::interactors
