#pragma once

#include <cstddef>
#include <cstdint>

#include "message_rules.h"

namespace platform {

enum class FrameKind : std::uint8_t
{
    Request = 1,
    Reply = 2,
    Connect = 3,
    Verdict = 4,
};

/// What every packet starts with; message and arena follow. Little-endian.
struct Frame
{
    std::uint32_t magic;
    FrameKind kind;
    std::uint8_t handleMask;  ///< bit n: handle slot n is filled, its descriptor travels along
    std::uint16_t flags;
    std::uint64_t sequence;      ///< number of the call on its connection, from 1
    std::uint64_t acknowledged;  ///< in a request: last call whose reply has reached the caller
    std::uint32_t messageBytes;
    std::uint32_t arenaBytes;
};

static_assert(sizeof(Frame) == 32);
static_assert(offsetof(Frame, kind) == 4);
static_assert(offsetof(Frame, handleMask) == 5);
static_assert(offsetof(Frame, flags) == 6);
static_assert(offsetof(Frame, sequence) == 8);
static_assert(offsetof(Frame, acknowledged) == 16);
static_assert(offsetof(Frame, messageBytes) == 24);
static_assert(offsetof(Frame, arenaBytes) == 28);

/// "TVO" and the version of the wire format.
inline constexpr std::uint32_t FrameMagic = 0x014F5654U;

/// The arena does not follow in the packet: the first descriptor is a file with it.
inline constexpr std::uint16_t FrameArenaInFile = 0x0001;

/// Arenas beyond this travel in a file.
inline constexpr std::size_t MaxInlineArena = std::size_t{64} * 1024;

inline constexpr std::size_t MaxPacketBytes = sizeof(Frame) + MaxMessageBytes + MaxInlineArena;
inline constexpr std::size_t MaxPacketDescriptors = MaxHandles + 1;

/// The room of a receiver.
struct MessageRoom
{
    std::size_t message;
    std::size_t arena;
    std::size_t handles;
};

inline constexpr MessageRoom LargestRoom{MaxMessageBytes, MaxArenaBytes, MaxHandles};

/// Checks a packet as it came from the socket, before anything in it is used: magic, a kind that is
/// allowed now, sizes that add up, as many descriptors as the frame says.
/// @param frame  filled when the packet is sound
/// @returns null, or what is wrong with it
const char* CheckPacket(const unsigned char* packet,
                        std::size_t size,
                        std::size_t descriptors,
                        FrameKind allowed,
                        Frame& frame);

/// Checks that a sound packet fits its receiver.
/// @returns null, or what is wrong with it
const char* CheckRoom(const unsigned char* packet, const Frame& frame, const MessageRoom& room);

/// The header of the message in a sound packet.
wz_message MessageHeader(const unsigned char* packet);

}  // namespace platform
