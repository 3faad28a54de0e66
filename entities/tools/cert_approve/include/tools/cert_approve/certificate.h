#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct x509_st;

namespace cert_approve {

using Sha256 = std::array<unsigned char, 32>;

/// An X.509 certificate. That it can be read says nothing about whether to trust it: signatures,
/// dates and chains are not looked at.
class Certificate
{
public:
    /// @param input  PEM or DER; where there is more than one certificate, the first
    /// @throws Failure  BadInput when there is none
    explicit Certificate(std::string_view input);

    /// Takes over OpenSSL's object; not null.
    explicit Certificate(x509_st* certificate) noexcept : m_x509(certificate) {}

    /// The names as RFC 2253 texts in UTF-8, whole, with ASCII control characters escaped; empty
    /// for a name without parts.
    /// @throws Failure  BadInput for a name that cannot be written so
    [[nodiscard]] std::string Subject() const;
    [[nodiscard]] std::string Issuer() const;

    /// Microseconds since the Unix epoch.
    /// @throws Failure  BadInput when the certificate holds no date there
    [[nodiscard]] std::int64_t ValidFrom() const;
    [[nodiscard]] std::int64_t ValidTo() const;

    /// The digest of the certificate's DER form.
    [[nodiscard]] Sha256 Fingerprint() const;

    [[nodiscard]] std::string Pem() const;

private:
    struct Release
    {
        void operator()(x509_st* certificate) const noexcept;
    };

    std::unique_ptr<x509_st, Release> m_x509;
};

}  // namespace cert_approve
