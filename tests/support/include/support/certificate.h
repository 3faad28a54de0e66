#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace support {

/// What a certificate is to say. Names are pairs of an attribute ("CN", "O") and its text in UTF-8,
/// in the order of the encoding; no length limit is set on them.
struct CertificateText
{
    using Name = std::vector<std::pair<std::string, std::string>>;

    Name subject = {{"CN", "server.example"}};
    Name issuer = {{"CN", "Example Authority"}};
    /// Seconds since the Unix epoch; 1 January 2025 to 1 January 2026.
    std::int64_t notBefore = 1735689600;
    std::int64_t notAfter = 1767225600;
};

struct Certificate
{
    std::string pem;
    std::string keyPem;
    /// SHA-256 of the certificate, 64 upper-case hexadecimal digits.
    std::string sha256;
};

/// Makes a certificate with a new key of its own, signed by that key whatever the issuer says.
/// @throws std::runtime_error if OpenSSL refuses.
Certificate MakeCertificate(const CertificateText& text);

}  // namespace support
