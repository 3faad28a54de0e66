#include <component/cert_approver/tvo_ipc/vx_cert_approver.h>

namespace {

/// Calls one operation on its own view of the messages.
/// @returns whether it has succeeded; the response's size is set then
template <auto Operation, typename Request, typename Response>
bool Call(vx_cert_approver_CertApprover* certApprover,
          const wz_message* request,
          const wz_arena* requestArena,
          wz_message* response,
          wz_arena* responseArena)
{
    const int result = (certApprover->ops->*Operation)(certApprover,
                                                       reinterpret_cast<const Request*>(request),
                                                       requestArena,
                                                       reinterpret_cast<Response*>(response),
                                                       responseArena);
    if (result != 0)
    {
        return false;
    }
    response->size = sizeof(Response);
    return true;
}

constexpr auto CallApproveZrcCert = Call<&vx_cert_approver_CertApprover_ops::ApproveZrcCert,
                                         vx_cert_approver_CertApprover_ApproveZrcCert_req,
                                         vx_cert_approver_CertApprover_ApproveZrcCert_res>;
constexpr auto CallApproveCert = Call<&vx_cert_approver_CertApprover_ops::ApproveCert,
                                      vx_cert_approver_CertApprover_ApproveCert_req,
                                      vx_cert_approver_CertApprover_ApproveCert_res>;

}  // namespace

bool vx_cert_approver_CertApprover_component_dispatch(
    vx_cert_approver_CertApprover_component* component,
    unsigned short riid,
    const wz_message* request,
    const wz_arena* requestArena,
    wz_message* response,
    wz_arena* responseArena)
{
    if (request->iid != riid)
    {
        return false;
    }
    bool served = false;
    auto* certApprover = component->certApprover;
    switch (request->mid)
    {
        case vx_cert_approver_CertApprover_ApproveZrcCert_mid:
            served =
                CallApproveZrcCert(certApprover, request, requestArena, response, responseArena);
            break;
        case vx_cert_approver_CertApprover_ApproveCert_mid:
            served = CallApproveCert(certApprover, request, requestArena, response, responseArena);
            break;
        default:
            break;
    }
    response->iid = request->iid;
    response->mid = request->mid;
    return served;
}
