#pragma once

#include <cstdint>
#include <string>

namespace certs::cert_service {

/// What a person is shown of a certificate, as the caller formatted it. Nothing in here has been
/// checked: every text may be empty and may hold any bytes, the dates any value.
struct CertData
{
    std::string issuer;
    std::string subject;
    std::int64_t validFrom = 0;  ///< microseconds since the Unix epoch
    std::int64_t validTo = 0;    ///< microseconds since the Unix epoch
    std::string fingerprint;     ///< ready for display
    std::string address;         ///< of the server that presented the certificate

    friend bool operator==(const CertData&, const CertData&) = default;
};

}  // namespace certs::cert_service
