#pragma once

#include <component/cert_approver/cert_data.h>
#include <component/cert_approver/tvo_ipc/vx_cert_approver_types.h>
#include <shared/common/tvo/ipc/arena/arena.h>

namespace cert_approver::common {

/// Writes a certificate into a message; its texts go into the arena. A text over its limit is cut
/// there, with a warning in the log.
/// @throws zin::CheckFailedException  when the arena has no room
vx_cert_approver_Types_CertData CastToWz(const certs::cert_service::CertData& certData,
                                         wz_arena* arena);

/// Reads a certificate of foreign origin. A text whose reference points out of the arena is empty:
/// a malformed certificate is shown with blank fields and not refused.
certs::cert_service::CertData CastFromWz(const vx_cert_approver_Types_CertData& wzCertData,
                                         const wz_arena* arena);

}  // namespace cert_approver::common

namespace tvo::ipc::arena::conv {

/// Writes without cutting: a text over its limit or without room gets an invalid reference and
/// clears the status, and the others are still written.
vx_cert_approver_Types_CertData ToWz(wz_arena& arena,
                                     const certs::cert_service::CertData& certData,
                                     Status& status);

/// Reads as `CastFromWz` does, and clears the status for every reference that points out of the
/// arena.
certs::cert_service::CertData FromWz(const wz_arena& arena,
                                     const vx_cert_approver_Types_CertData& wzCertData,
                                     Status& status) noexcept;

}  // namespace tvo::ipc::arena::conv
