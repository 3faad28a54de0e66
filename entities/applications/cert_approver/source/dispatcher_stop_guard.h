#pragma once

#include <memory>

#include <shared/common/tvo/entity/base_component_dispatcher.h>

#include "business/i_cert_approver_verdict_interactor.h"

namespace cert_approver {

/// Stops the dispatcher at the end of its scope, whoever still waits for an answer. The dispatcher
/// waits for the call that it is serving, which waits for a person, without a limit; once the event
/// loop has ended nobody can answer any more. So those who wait are refused, one after the other,
/// until the dispatcher has stopped.
class DispatcherStopGuard
{
public:
    /// @param dispatcher  not owned, outlives the guard
    DispatcherStopGuard(
        tvo::entity::IComponentDispatcher& dispatcher,
        std::shared_ptr<interactors::ICertApproverVerdictSetter> verdictSetter) noexcept;
    ~DispatcherStopGuard();

    DispatcherStopGuard(const DispatcherStopGuard&) = delete;
    DispatcherStopGuard& operator=(const DispatcherStopGuard&) = delete;

private:
    tvo::entity::IComponentDispatcher& m_dispatcher;
    std::shared_ptr<interactors::ICertApproverVerdictSetter> m_verdictSetter;
};

}  // namespace cert_approver
