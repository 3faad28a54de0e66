#pragma once

#include <memory>
#include <string>
#include <vector>

#include "contender.h"
#include "store_folder.h"

namespace tvo::bench {

// The settings service with a database, against what keeps settings elsewhere. The trees that are
// written, read and serialised all have the same 10,000 nodes.

/// How many writes are one operation of the two that follow. A flush takes as long as the batch or
/// not much of anything, as the file system has it: both sides are to meet as many of them.
inline constexpr int DurableWrites = 8;

/// A string written durably.
std::unique_ptr<Contender> MakeDurableWrites();

/// The same into a bare database, and a small call.
std::unique_ptr<Contender> MakeDurableUpdates();

/// A string read.
std::unique_ptr<Contender> MakeReads();

/// A string written until another process knows of it.
std::unique_ptr<Contender> MakeNotifications(Medium medium);

/// A tree written with other values, and read.
std::unique_ptr<Contender> MakeTreeWrites();
std::unique_ptr<Contender> MakeTreeReads();

/// A tree into its raw form and back.
std::unique_ptr<Contender> MakeSerializations();

/// The process that observes a setting.
void ServeObserver(const std::vector<std::string>& arguments);

#ifdef TVO_BENCH_DCONF
/// The same with dconf: each in a process with a session of its own.
std::unique_ptr<Contender> MakeDconfNotifications(Medium medium);
std::unique_ptr<Contender> MakeDconfTreeWrites();
std::unique_ptr<Contender> MakeDconfTreeReads();

/// The processes behind them.
void ServeDconf(const std::vector<std::string>& arguments);
void ServeDconfObserver(const std::vector<std::string>& arguments);
#endif

#ifdef TVO_BENCH_PROTOBUF
/// A tree of protobuf messages into bytes and back.
std::unique_ptr<Contender> MakeProtobufSerializations();
#endif

}  // namespace tvo::bench
