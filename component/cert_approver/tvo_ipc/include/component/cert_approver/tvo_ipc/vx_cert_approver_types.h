#pragma once

#include <cstddef>
#include <cstdint>

#include <shared/common/tvo/ipc/arena/arena.h>

/// Bytes that a text may have at most.
inline constexpr std::uint32_t vx_cert_approver_Types_CertData_issuer_limit = 256;
inline constexpr std::uint32_t vx_cert_approver_Types_CertData_subject_limit = 256;
inline constexpr std::uint32_t vx_cert_approver_Types_CertData_fingerprint_limit = 128;
inline constexpr std::uint32_t vx_cert_approver_Types_CertData_address_limit = 256;

/// A certificate inside a message. The texts lie in the message's arena, in the order of the
/// fields, each directly behind the one before.
struct vx_cert_approver_Types_CertData
{
    tvo::ipc::arena::Reference issuer;
    tvo::ipc::arena::Reference subject;
    std::int64_t validFrom;  ///< microseconds since the Unix epoch
    std::int64_t validTo;    ///< microseconds since the Unix epoch
    tvo::ipc::arena::Reference fingerprint;
    tvo::ipc::arena::Reference address;
};

static_assert(sizeof(vx_cert_approver_Types_CertData) == 48);
static_assert(offsetof(vx_cert_approver_Types_CertData, issuer) == 0);
static_assert(offsetof(vx_cert_approver_Types_CertData, subject) == 8);
static_assert(offsetof(vx_cert_approver_Types_CertData, validFrom) == 16);
static_assert(offsetof(vx_cert_approver_Types_CertData, validTo) == 24);
static_assert(offsetof(vx_cert_approver_Types_CertData, fingerprint) == 32);
static_assert(offsetof(vx_cert_approver_Types_CertData, address) == 40);
