#pragma once

#include <cstdint>
#include <string>

namespace cert_approver::ui {

/// What the view shows of a certificate, so that it need not know the service's own record.
struct CertViewData
{
    std::string issuer;
    std::string subject;
    std::int64_t validFrom = 0;  ///< microseconds since the Unix epoch
    std::int64_t validTo = 0;    ///< microseconds since the Unix epoch
    std::string fingerprint;
    std::string address;
};

}  // namespace cert_approver::ui
