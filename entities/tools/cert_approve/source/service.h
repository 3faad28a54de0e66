#pragma once

#include <component/cert_approver/cert_data.h>
#include <component/cert_approver/verdict.h>

namespace cert_approve {

/// Asks the approval service of the terminal, which may take up to five seconds to appear.
/// @throws Failure  ServiceFailed
cert_approver::Verdict AskService(const certs::cert_service::CertData& certData);

}  // namespace cert_approve
