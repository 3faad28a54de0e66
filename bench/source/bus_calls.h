#pragma once

#include <memory>
#include <string>
#include <vector>

#include "contender.h"

namespace tvo::bench {

// The same calls over sd-bus, as a program on D-Bus would make them.

/// From one process straight to the other.
std::unique_ptr<Contender> MakePeerBusCalls();

/// Through a bus daemon of their own.
std::unique_ptr<Contender> MakeDaemonBusCalls();

/// The servers behind them: on `ServerSocket`, or on the bus at the address in the argument.
void ServePeerBus(const std::vector<std::string>& arguments);
void ServeDaemonBus(const std::vector<std::string>& arguments);

}  // namespace tvo::bench
