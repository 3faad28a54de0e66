#pragma once

#include <memory>
#include <string>
#include <vector>

#include "contender.h"

namespace tvo::bench {

/// Sets a bit that wakes another process, which sets one that wakes this: two wake-ups.
std::unique_ptr<Contender> MakeEventWakeUps();

void ServeEventWakeUps(const std::vector<std::string>& arguments);

}  // namespace tvo::bench
