#pragma once

#include <string>
#include <string_view>

namespace cert_approve {

/// Where a server listens.
struct Endpoint
{
    std::string host;  ///< a name or an address, an IPv6 one without its brackets
    std::string port;  ///< a number from 1 to 65535
};

/// Reads `HOST:PORT`, where an IPv6 address stands in brackets.
/// @throws Failure  BadInput
Endpoint ParseEndpoint(std::string_view text);

/// Whether a host is an address, so that it is no name to ask a server for.
bool IsAddress(const std::string& host);

}  // namespace cert_approve
