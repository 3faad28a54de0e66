#pragma once

#include <cstdint>

namespace cert_approver {

/// The answer to one request.
enum class Verdict : std::uint8_t
{
    Close = 0,    ///< the certificate is not to be trusted
    Approve = 1,  ///< the person chose to add the certificate
};

/// Carried with some requests and without effect: both values are answered alike.
enum class Mode : std::uint8_t
{
    Mode0 = 0,
    Mode1 = 1,
};

}  // namespace cert_approver
