#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace shared::ipc_utils {

using NameBuffer = std::array<char, 1024>;

/// Announces a service of this entity, so that clients can find it by its interface and ask for a
/// connection. The first call takes the entity's name for the life of the process.
/// @returns false when the name is held by another process or the rendezvous folder is unusable;
/// one
///          line of the platform's log tells which
bool TryPublishService(const char* interfaceName, const char* serviceName);

/// Looks for a living server of the interface.
/// @param timeoutMs  milliseconds; 0xFFFFFFFF waits without a limit, 0 looks once
/// @returns server and service name, both zero-terminated
std::optional<std::pair<NameBuffer, NameBuffer>> FindConnectionTargetForType(
    const char* interfaceName,
    std::uint32_t timeoutMs);

}  // namespace shared::ipc_utils
