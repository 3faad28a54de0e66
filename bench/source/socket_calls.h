#pragma once

#include <memory>
#include <string>
#include <vector>

#include "contender.h"

namespace tvo::bench {

// Calls over bare sockets: the least that any runtime on them has to pay.

/// One packet there, one back, the server waiting in epoll.
std::unique_ptr<Contender> MakePacketCalls();

/// `LargeBytes` through a stream and a small reply.
std::unique_ptr<Contender> MakeStreamCalls();

/// A word there and a word back, both ends waiting in epoll: two wake-ups.
std::unique_ptr<Contender> MakePacketWakeUps();

/// The servers behind them, on `ServerSocket`.
void ServePackets(const std::vector<std::string>& arguments);
void ServeStream(const std::vector<std::string>& arguments);
void ServePacketWakeUps(const std::vector<std::string>& arguments);

}  // namespace tvo::bench
