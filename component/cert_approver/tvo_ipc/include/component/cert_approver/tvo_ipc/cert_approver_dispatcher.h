#pragma once

#include <component/cert_approver/tvo_ipc/vx_cert_approver.h>
#include <shared/common/tvo/entity/component_dispatcher.h>

namespace cert_approver::stub {

/// Serves the approval interface on an endpoint; the component comes from
/// `ICertApproverComponent::GetComponent`.
using CertApproverDispatcher =
    ::tvo::entity::ComponentDispatcher<vx_cert_approver_CertApprover_component,
                                       vx_cert_approver_CertApprover_component_req,
                                       vx_cert_approver_CertApprover_component_res,
                                       &vx_cert_approver_CertApprover_component_dispatch,
                                       vx_cert_approver_CertApprover_req_arena_size,
                                       vx_cert_approver_CertApprover_res_arena_size>;

}  // namespace cert_approver::stub
