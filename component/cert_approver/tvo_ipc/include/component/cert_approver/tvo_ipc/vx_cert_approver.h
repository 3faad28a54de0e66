#pragma once

#include <cstddef>
#include <cstdint>

#include <component/cert_approver/tvo_ipc/vx_cert_approver_types.h>
#include <shared/common/tvo/ipc/arena/arena.h>
#include <wz/message.h>

// The interface vx.cert_approver.CertApprover: its methods, their messages, and the server's
// records through which a request reaches its operation.

enum vx_cert_approver_CertApprover_mid : std::uint16_t
{
    vx_cert_approver_CertApprover_ApproveZrcCert_mid = 0,
    vx_cert_approver_CertApprover_ApproveCert_mid = 1,
};

inline constexpr std::uint32_t vx_cert_approver_CertApprover_result_limit = 128;

/// Bytes of the arenas: the sums of what the largest request and response may bring.
inline constexpr std::uint32_t vx_cert_approver_CertApprover_req_arena_size =
    vx_cert_approver_Types_CertData_issuer_limit + vx_cert_approver_Types_CertData_subject_limit +
    vx_cert_approver_Types_CertData_fingerprint_limit +
    vx_cert_approver_Types_CertData_address_limit;
inline constexpr std::uint32_t vx_cert_approver_CertApprover_res_arena_size =
    vx_cert_approver_CertApprover_result_limit;

static_assert(vx_cert_approver_CertApprover_req_arena_size == 896);
static_assert(vx_cert_approver_CertApprover_res_arena_size == 128);

struct vx_cert_approver_CertApprover_ApproveZrcCert_req
{
    wz_message base;
    vx_cert_approver_Types_CertData cert;
    std::uint8_t mode;
};

static_assert(sizeof(vx_cert_approver_CertApprover_ApproveZrcCert_req) == 80);
static_assert(offsetof(vx_cert_approver_CertApprover_ApproveZrcCert_req, cert) == 24);
static_assert(offsetof(vx_cert_approver_CertApprover_ApproveZrcCert_req, mode) == 72);

struct alignas(8) vx_cert_approver_CertApprover_ApproveZrcCert_res
{
    wz_message base;
    std::uint8_t verdict;
    tvo::ipc::arena::Reference result;
};

static_assert(sizeof(vx_cert_approver_CertApprover_ApproveZrcCert_res) == 40);
static_assert(offsetof(vx_cert_approver_CertApprover_ApproveZrcCert_res, verdict) == 24);
static_assert(offsetof(vx_cert_approver_CertApprover_ApproveZrcCert_res, result) == 28);

struct vx_cert_approver_CertApprover_ApproveCert_req
{
    wz_message base;
    vx_cert_approver_Types_CertData cert;
};

static_assert(sizeof(vx_cert_approver_CertApprover_ApproveCert_req) == 72);
static_assert(offsetof(vx_cert_approver_CertApprover_ApproveCert_req, cert) == 24);

struct alignas(8) vx_cert_approver_CertApprover_ApproveCert_res
{
    wz_message base;
    std::uint8_t verdict;
};

static_assert(sizeof(vx_cert_approver_CertApprover_ApproveCert_res) == 32);
static_assert(offsetof(vx_cert_approver_CertApprover_ApproveCert_res, verdict) == 24);

/// Any request of the interface; the server's one receive buffer.
union vx_cert_approver_CertApprover_component_req
{
    vx_cert_approver_CertApprover_ApproveZrcCert_req approveZrcCert;
    vx_cert_approver_CertApprover_ApproveCert_req approveCert;
};

static_assert(sizeof(vx_cert_approver_CertApprover_component_req) == 80);

/// Any response of the interface.
union vx_cert_approver_CertApprover_component_res
{
    vx_cert_approver_CertApprover_ApproveZrcCert_res approveZrcCert;
    vx_cert_approver_CertApprover_ApproveCert_res approveCert;
};

static_assert(sizeof(vx_cert_approver_CertApprover_component_res) == 40);

struct vx_cert_approver_CertApprover;

/// The operations in the order of their methods. Each returns 0 for success.
struct vx_cert_approver_CertApprover_ops
{
    int (*ApproveZrcCert)(vx_cert_approver_CertApprover* self,
                          const vx_cert_approver_CertApprover_ApproveZrcCert_req* request,
                          const wz_arena* requestArena,
                          vx_cert_approver_CertApprover_ApproveZrcCert_res* response,
                          wz_arena* responseArena);
    int (*ApproveCert)(vx_cert_approver_CertApprover* self,
                       const vx_cert_approver_CertApprover_ApproveCert_req* request,
                       const wz_arena* requestArena,
                       vx_cert_approver_CertApprover_ApproveCert_res* response,
                       wz_arena* responseArena);
};

/// One implementation of the interface, which stands behind its record.
struct vx_cert_approver_CertApprover
{
    const vx_cert_approver_CertApprover_ops* ops;
};

/// What a dispatcher holds.
struct vx_cert_approver_CertApprover_component
{
    vx_cert_approver_CertApprover* certApprover;
};

/// Calls the operation that the request names and fills in the response's header.
/// @param request  a whole `vx_cert_approver_CertApprover_component_req`
/// @param response  a whole `vx_cert_approver_CertApprover_component_res`
/// @returns false when the request is for another interface, which leaves the response alone, for
///          no method of this one, or when the operation has failed
bool vx_cert_approver_CertApprover_component_dispatch(
    vx_cert_approver_CertApprover_component* component,
    unsigned short riid,
    const wz_message* request,
    const wz_arena* requestArena,
    wz_message* response,
    wz_arena* responseArena);
