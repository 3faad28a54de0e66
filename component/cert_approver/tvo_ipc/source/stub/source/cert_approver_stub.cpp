#include <string>
#include <utility>

#include <component/cert_approver/tvo_ipc/cert_approver_stub.h>
#include <component/cert_approver/tvo_ipc/type_utils.h>
#include <component/cert_approver/tvo_ipc/wz_cert_approver_types.h>
#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>

namespace cert_approver::stub {

namespace {

/// The one answer to every failure of an operation.
constexpr int Failed = -22;

ICertApprover* HandlerOf(const vx_cert_approver_CertApprover* self)
{
    return static_cast<const CertApproverStub*>(self)->Handler();
}

void StoreVerdict(Verdict verdict, std::uint8_t& wireVerdict)
{
    ZIN_CHECK_RESULT(common::VerdictToIpc(verdict, wireVerdict), "");
}

}  // namespace

CertApproverStub::CertApproverStub(std::shared_ptr<ICertApprover> handler)
    : vx_cert_approver_CertApprover{}, m_handler(std::move(handler))
{
    if (!m_handler)
    {
        throw zin::InvalidArgumentException(__FILE__, __LINE__);
    }
    m_ops = std::make_unique<vx_cert_approver_CertApprover_ops>();
    m_ops->ApproveZrcCert = &vx_cert_approver_CertApprover_ApproveZrcCert_fn;
    m_ops->ApproveCert = &vx_cert_approver_CertApprover_ApproveCert_fn;
    ops = m_ops.get();
}

CertApproverComponent::CertApproverComponent(std::shared_ptr<ICertApprover> handler)
    : m_component(std::make_shared<vx_cert_approver_CertApprover_component>()),
      m_stub(std::move(handler))
{
    m_component->certApprover = &m_stub;
}

std::shared_ptr<vx_cert_approver_CertApprover_component> CertApproverComponent::GetComponent()
{
    return m_component;
}

std::unique_ptr<ICertApproverComponent> CreateCertApproverComponent(
    std::shared_ptr<ICertApprover> handler)
{
    return std::make_unique<CertApproverComponent>(std::move(handler));
}

int vx_cert_approver_CertApprover_ApproveZrcCert_fn(
    vx_cert_approver_CertApprover* self,
    const vx_cert_approver_CertApprover_ApproveZrcCert_req* request,
    const wz_arena* requestArena,
    vx_cert_approver_CertApprover_ApproveZrcCert_res* response,
    wz_arena* responseArena)
{
    try
    {
        ZIN_CHECK(self != nullptr, "certApprover is null");
        ZIN_CHECK(request != nullptr, "request is null");
        ZIN_CHECK(requestArena != nullptr, "request arena is null");
        ZIN_CHECK(response != nullptr, "response is null");
        ZIN_CHECK(responseArena != nullptr, "response arena is null");

        const auto certData = common::CastFromWz(request->cert, requestArena);
        Mode mode{};
        ZIN_CHECK_RESULT(common::IpcToMode(request->mode, mode), "");
        ICertApprover* handler = HandlerOf(self);
        if (handler == nullptr)
        {
            return Failed;
        }
        Verdict verdict = Verdict::Close;
        std::string text;
        if (handler->ApproveZrcCert(certData, mode, verdict, text) < 0)
        {
            TVO_LOG_ERROR("CertApprover stub: Failed  to call ApproveZrcCert");
        }
        StoreVerdict(verdict, response->verdict);
        // A text that does not fit leaves an invalid reference, which reads as an empty text.
        static_cast<void>(tvo::ipc::arena::WriteText(
            *responseArena, text, vx_cert_approver_CertApprover_result_limit, response->result));
        return 0;
    }
    catch (const std::exception&)
    {
        TVO_LOG_ERROR("CertApprover stub: {}", ::common::utils::ProcessException().second);
        return Failed;
    }
}

int vx_cert_approver_CertApprover_ApproveCert_fn(
    vx_cert_approver_CertApprover* self,
    const vx_cert_approver_CertApprover_ApproveCert_req* request,
    const wz_arena* requestArena,
    vx_cert_approver_CertApprover_ApproveCert_res* response,
    wz_arena* /*responseArena*/)
{
    try
    {
        ZIN_CHECK(self != nullptr, "certApprover is null");
        ZIN_CHECK(request != nullptr, "request is null");
        ZIN_CHECK(requestArena != nullptr, "request arena is null");
        ZIN_CHECK(response != nullptr, "response is null");

        const auto certData = common::CastFromWz(request->cert, requestArena);
        ICertApprover* handler = HandlerOf(self);
        if (handler == nullptr)
        {
            return Failed;
        }
        Verdict verdict = Verdict::Close;
        if (handler->ApproveCert(certData, verdict) < 0)
        {
            TVO_LOG_ERROR("CertApprover stub: Failed  to call ApproveCert");
        }
        StoreVerdict(verdict, response->verdict);
        return 0;
    }
    catch (const std::exception&)
    {
        TVO_LOG_ERROR("CertApprover stub: {}", ::common::utils::ProcessException().second);
        return Failed;
    }
}

}  // namespace cert_approver::stub
