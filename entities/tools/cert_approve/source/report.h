#pragma once

#include <string>

#include <component/cert_approver/cert_data.h>
#include <component/cert_approver/verdict.h>

namespace cert_approve {

/// "approve" or "close"
const char* VerdictText(cert_approver::Verdict verdict);

/// One line of JSON: the verdict, what the person was shown, and where the certificate was saved.
/// @param savedPath  empty when it was not
std::string JsonReport(cert_approver::Verdict verdict,
                       const certs::cert_service::CertData& certData,
                       const std::string& savedPath);

}  // namespace cert_approve
