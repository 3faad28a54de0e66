#pragma once

#include <filesystem>
#include <string>

namespace support {

/// @returns which sockets and held locks are in a rendezvous, and which processes know the folder
/// from their environment
std::string FindLeftovers(const std::filesystem::path& rendezvous,
                          const std::filesystem::path& folder);

}  // namespace support
