#pragma once

#include <memory>

#include <component/cert_approver/i_cert_approver.h>
#include <component/cert_approver/tvo_ipc/vx_cert_approver.h>

namespace cert_approver::stub {

/// The service as a dispatcher takes it. The record that it hands out works as long as this object
/// lives, so it has to outlive every dispatcher that holds the record.
class ICertApproverComponent
{
public:
    virtual ~ICertApproverComponent() = default;
    virtual std::shared_ptr<vx_cert_approver_CertApprover_component> GetComponent() = 0;
};

/// The interface record with the code that stands behind it. A pointer to the record is a pointer
/// to the stub.
class CertApproverStub final : public vx_cert_approver_CertApprover
{
public:
    /// @throws zin::InvalidArgumentException  for a null handler
    explicit CertApproverStub(std::shared_ptr<ICertApprover> handler);

    CertApproverStub(const CertApproverStub&) = delete;
    CertApproverStub& operator=(const CertApproverStub&) = delete;

    ICertApprover* Handler() const
    {
        return m_handler.get();
    }

private:
    std::shared_ptr<ICertApprover> m_handler;
    std::unique_ptr<vx_cert_approver_CertApprover_ops> m_ops;
};

class CertApproverComponent final : public ICertApproverComponent
{
public:
    /// @throws zin::InvalidArgumentException  for a null handler
    explicit CertApproverComponent(std::shared_ptr<ICertApprover> handler);

    std::shared_ptr<vx_cert_approver_CertApprover_component> GetComponent() override;

private:
    std::shared_ptr<vx_cert_approver_CertApprover_component> m_component;
    CertApproverStub m_stub;
};

/// @throws zin::InvalidArgumentException  for a null handler
std::unique_ptr<ICertApproverComponent> CreateCertApproverComponent(
    std::shared_ptr<ICertApprover> handler);

/// The operations. They check their arguments, convert, call the handler, which blocks until a
/// person has answered, and convert back.
/// @returns 0, also when the handler has failed, whose caller then reads the verdict as it stands;
///          -22 for a null argument, an unknown mode or verdict, or anything else that was thrown
int vx_cert_approver_CertApprover_ApproveZrcCert_fn(
    vx_cert_approver_CertApprover* self,
    const vx_cert_approver_CertApprover_ApproveZrcCert_req* request,
    const wz_arena* requestArena,
    vx_cert_approver_CertApprover_ApproveZrcCert_res* response,
    wz_arena* responseArena);

/// @param responseArena  not used, may be null
int vx_cert_approver_CertApprover_ApproveCert_fn(
    vx_cert_approver_CertApprover* self,
    const vx_cert_approver_CertApprover_ApproveCert_req* request,
    const wz_arena* requestArena,
    vx_cert_approver_CertApprover_ApproveCert_res* response,
    wz_arena* responseArena);

}  // namespace cert_approver::stub
