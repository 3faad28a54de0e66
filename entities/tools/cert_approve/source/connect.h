#pragma once

#include "deadline.h"
#include "descriptor.h"
#include "endpoint.h"

namespace cert_approve {

/// Resolves the host and connects to the first of its addresses that answers. The socket does not
/// block.
/// @throws Failure  ServerUnreachable
Descriptor Connect(const Endpoint& endpoint, const Deadline& deadline);

/// Waits until a socket is ready for the poll events.
/// @returns false when the limit has passed
bool WaitFor(int socket, short events, const Deadline& deadline);

}  // namespace cert_approve
