#pragma once

#include <cstdint>

/// How much a message of the settings interfaces may carry, in bytes where nothing else is said.
namespace settings_manager::ipc::limits {

inline constexpr std::uint32_t Path = 512;
inline constexpr std::uint32_t Value = 8192;
inline constexpr std::uint32_t Attrib = 16;
inline constexpr std::uint32_t NodeRecord = 24;
inline constexpr std::uint32_t NodesInMessage = 64;  ///< a number
inline constexpr std::uint32_t CallbackName = 256;

/// Arenas that hold one path, and those of one chunk of nodes; `Write` brings a path besides.
inline constexpr std::uint32_t PathArena = Path;
inline constexpr std::uint32_t ChunkArena = NodesInMessage * (Path + Value + Attrib + NodeRecord);
inline constexpr std::uint32_t WriteArena = Path + ChunkArena;

static_assert(ChunkArena == 559616);
static_assert(WriteArena == 560128);

}  // namespace settings_manager::ipc::limits
