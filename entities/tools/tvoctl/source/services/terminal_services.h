#pragma once

#include <vector>

#include "published_service.h"

namespace tvoctl {

/// What is published in the rendezvous folder by processes that live.
/// @throws Failure  NoService
std::vector<PublishedService> ListTerminalServices();

}  // namespace tvoctl
