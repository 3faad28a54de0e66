#pragma once

#include <functional>
#include <iosfwd>

#include <component/cert_approver/cert_data.h>
#include <component/cert_approver/verdict.h>

namespace cert_approve {

/// Shows a certificate to a person and waits for the answer.
/// @throws Failure  ServiceFailed
using Ask = std::function<cert_approver::Verdict(const certs::cert_service::CertData&)>;

/// The program from its arguments to its exit status. The verdict goes to `out`; a failure is one
/// line on `err`.
int Run(int argc, const char* const* argv, const Ask& ask, std::ostream& out, std::ostream& err);

}  // namespace cert_approve
