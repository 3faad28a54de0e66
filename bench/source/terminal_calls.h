#pragma once

#include <memory>
#include <string>
#include <vector>

#include "contender.h"

namespace tvo::bench {

// Calls through this project's own runtime, from the client's transport to a dispatcher in another
// process and back.

/// A small message with a small arena to an operation that does nothing.
/// @param connections  how many are connected; one of them calls
std::unique_ptr<Contender> MakeSmallCalls(int connections);

/// The same with an arena of `LargeBytes`.
std::unique_ptr<Contender> MakeLargeCalls();

/// A certificate, converted, carried, handled and answered. There is no window: whoever shows one
/// is answered at once.
std::unique_ptr<Contender> MakeApprovals();

/// The servers behind them.
void ServeEcho(const std::vector<std::string>& arguments);
void ServeApprovals(const std::vector<std::string>& arguments);

}  // namespace tvo::bench
