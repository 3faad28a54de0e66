#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <component/cert_approver/cert_data.h>
#include <tools/cert_approve/certificate.h>

namespace cert_approve {

/// What a person is shown of a certificate. The texts are safe to show and fit the request's fields
/// whatever the certificate holds.
/// @param address  of the server, as the user gave it; may be empty
/// @throws Failure  BadInput for a certificate without dates
certs::cert_service::CertData MakeCertData(const Certificate& certificate,
                                           std::string_view address);

/// A text in valid UTF-8 within `limit` bytes. What does not show itself (control, bidirectional
/// and invisible characters, bytes that are no UTF-8) is written as `\XX`, a byte each. A text that
/// does not fit is cut between characters or escapes and ends with an ellipsis.
std::string DisplayText(std::string_view text, std::size_t limit);

/// "SHA-256" and the whole digest in groups of four digits, 87 characters, to be wrapped at blanks.
std::string FingerprintText(const Sha256& digest);

}  // namespace cert_approve
