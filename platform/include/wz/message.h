#pragma once

#include <cstddef>
#include <cstdint>

/// The header that every message starts with. All integers are little-endian on the wire.
struct wz_message
{
    std::uint16_t iid;           ///< interface number; a response repeats the request's
    std::uint16_t mid;           ///< method ordinal; a response repeats the request's
    std::uint32_t size;          ///< bits 0-22 size in bytes, 23-30 handles, 31 failed call
    std::uint8_t transport[16];  ///< the transport's own, not touched by its users
};

static_assert(sizeof(wz_message) == 24);
static_assert(offsetof(wz_message, mid) == 2);
static_assert(offsetof(wz_message, size) == 4);
static_assert(offsetof(wz_message, transport) == 8);

inline constexpr std::uint32_t WzMessageSizeMask = 0x007FFFFFU;
inline constexpr std::uint32_t WzMessageHandleCountMask = 0x7F800000U;
inline constexpr unsigned WzMessageHandleCountShift = 23;
inline constexpr std::uint32_t WzMessageFailedBit = 0x80000000U;

/// One handle that travels with a message. The slots follow the header directly, one for each
/// handle that the size word counts. The number is the low 24 bits of the first word; 0xFFFFFF
/// stands for "no handle".
struct wz_handle_slot
{
    std::uint32_t handle;
    std::uint32_t reserved[3];
};

static_assert(sizeof(wz_handle_slot) == 16);

inline constexpr std::uint32_t WzNoHandleInMessage = 0x00FFFFFFU;

/// Descriptor of a message's variable data; it does not own the bytes. `current` is the first free
/// byte while a message is built. After a message was received it stands one past the received
/// bytes, so `current - start` is what a reference may point into.
struct wz_arena
{
    unsigned char* start;
    unsigned char* current;
    unsigned char* end;
};
