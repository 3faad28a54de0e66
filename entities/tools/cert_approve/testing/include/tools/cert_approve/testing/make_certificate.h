#pragma once

#include <memory>
#include <optional>
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
    using Name = std::vector<std::pair<std::string, std::string>>;

    Name subject{{"C", "XX"}, {"CN", "server.test"}};
    std::optional<Name> issuer = std::nullopt;  ///< the subject, when it is not told
    std::string notBefore = "20240101000000Z";  ///< YYYYMMDDHHMMSSZ
    std::string notAfter = "20340101000000Z";
};

/// A certificate with its key, by which it is signed whatever the issuer says.
struct MadeCertificate
{
    std::shared_ptr<X509> x509;
    std::shared_ptr<EVP_PKEY> key;

    [[nodiscard]] std::string Der() const;
    [[nodiscard]] std::string Pem() const;
    [[nodiscard]] std::string KeyPem() const;

    /// 64 upper-case hexadecimal digits.
    [[nodiscard]] std::string Sha256() const;
};

/// @throws std::runtime_error
MadeCertificate MakeCertificate(const CertificateSpec& spec = {});

}  // namespace cert_approve::testing
