#pragma once

#include <chrono>
#include <string>

#include <tools/cert_approve/certificate.h>

#include "endpoint.h"

namespace cert_approve {

/// Asks a TLS server for its certificate and hangs up. Whoever signed it, it is not judged.
/// @param serverName  the name that the server is asked for; empty for none
/// @param limit       for resolving, connecting and the handshake together
/// @throws Failure  ServerUnreachable
Certificate FetchLeaf(const Endpoint& endpoint,
                      const std::string& serverName,
                      std::chrono::milliseconds limit);

}  // namespace cert_approve
