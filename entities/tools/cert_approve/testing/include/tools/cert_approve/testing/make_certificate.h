#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <openssl/x509.h>

namespace cert_approve::testing {

/// What a made certificate holds; the defaults make an ordinary one.
struct CertificateSpec
{
    /// Pairs of a type (as "CN") and a value, which is stored as it stands, whatever its bytes and
    /// length.
    std::vector<std::pair<std::string, std::string>> subject{{"C", "XX"}, {"CN", "server.test"}};
    std::string notBefore = "20240101000000Z";  ///< YYYYMMDDHHMMSSZ
    std::string notAfter = "20340101000000Z";
    int alternativeNames = 0;
};

/// A self-signed certificate with its key.
struct MadeCertificate
{
    std::shared_ptr<X509> x509;
    std::shared_ptr<EVP_PKEY> key;

    [[nodiscard]] std::string Der() const;
    [[nodiscard]] std::string Pem() const;
};

/// @throws std::runtime_error
MadeCertificate MakeCertificate(const CertificateSpec& spec = {});

}  // namespace cert_approve::testing
