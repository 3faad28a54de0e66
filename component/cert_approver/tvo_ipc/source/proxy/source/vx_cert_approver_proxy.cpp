#include <component/cert_approver/tvo_ipc/vx_cert_approver_proxy.h>
#include <component/cert_approver/tvo_ipc/wz_cert_approver_types.h>

namespace tvoipc_detail::idl_traits {

namespace {

using tvo::ipc::arena::Buffer;

}  // namespace

using CertApproverProxy = Proxy<tvoipc::idl::stdcpp_v1::vx::cert_approver::CertApprover>;

static_assert(sizeof(CertApproverProxy) == 80);

void CertApproverProxy::ApproveZrcCert(const certs::cert_service::CertData& cert,
                                       unsigned char mode,
                                       unsigned char& verdict,
                                       std::string& result)
{
    vx_cert_approver_CertApprover_ApproveZrcCert_req request{};
    vx_cert_approver_CertApprover_ApproveZrcCert_res response{};
    Buffer requestArena(vx_cert_approver_CertApprover_req_arena_size);
    Buffer responseArena(vx_cert_approver_CertApprover_res_arena_size);
    request.cert = cert_approver::common::CastToWz(cert, requestArena.Get());
    request.mode = mode;
    Call(vx_cert_approver_CertApprover_ApproveZrcCert_mid,
         "vx_cert_approver_CertApprover_ApproveZrcCert",
         request,
         requestArena.Get(),
         response,
         responseArena.Get());
    verdict = response.verdict;
    result = tvo::ipc::arena::ReadText(*responseArena.Get(), response.result)
                 .value_or(std::string_view());
}

void CertApproverProxy::ApproveCert(const certs::cert_service::CertData& cert,
                                    unsigned char& verdict)
{
    vx_cert_approver_CertApprover_ApproveCert_req request{};
    vx_cert_approver_CertApprover_ApproveCert_res response{};
    Buffer requestArena(vx_cert_approver_CertApprover_req_arena_size);
    request.cert = cert_approver::common::CastToWz(cert, requestArena.Get());
    Call(vx_cert_approver_CertApprover_ApproveCert_mid,
         "vx_cert_approver_CertApprover_ApproveCert",
         request,
         requestArena.Get(),
         response,
         nullptr);
    verdict = response.verdict;
}

}  // namespace tvoipc_detail::idl_traits
