#pragma once

#include <string>

#include "deadline.h"
#include "descriptor.h"
#include "peer.h"
#include "rendezvous.h"

namespace platform {

/// Connects to the socket of a name and checks who is there.
/// @returns `XoOk`, `XoObjectGone` when nobody is there, `XoTimedOut`, `XoRefused` when the server
///          is of a user that is not trusted, or another code
int ConnectTo(Place place,
              const std::string& encodedName,
              const Deadline& deadline,
              Descriptor& socket,
              Peer& server);

}  // namespace platform
