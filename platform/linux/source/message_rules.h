#pragma once

#include <cstddef>
#include <cstdint>

#include <wz/message.h>
#include <xo/result.h>

/// What every message has to keep to, whatever carries it.
namespace platform {

inline constexpr std::size_t MaxMessageBytes = 4096;
inline constexpr std::size_t MaxArenaBytes = std::size_t{1} << 20;
inline constexpr std::size_t MaxHandles = 8;

/// Invalid as an answer to `ServiceLocatorGetRiid` and in a failed `XoCmConnect`.
inline constexpr std::uint16_t InvalidRiid = 65535;

/// What a message of the caller's consists of, checked.
struct OutgoingSizes
{
    std::size_t message = 0;
    std::size_t arena = 0;
    std::size_t handles = 0;
};

inline std::size_t MessageBytes(const wz_message& message)
{
    return message.size & WzMessageSizeMask;
}

inline std::size_t HandleCount(const wz_message& message)
{
    return (message.size & WzMessageHandleCountMask) >> WzMessageHandleCountShift;
}

inline wz_handle_slot* HandleSlots(void* message)
{
    return reinterpret_cast<wz_handle_slot*>(static_cast<unsigned char*>(message) +
                                             sizeof(wz_message));
}

inline const wz_handle_slot* HandleSlots(const void* message)
{
    return reinterpret_cast<const wz_handle_slot*>(static_cast<const unsigned char*>(message) +
                                                   sizeof(wz_message));
}

inline bool SlotsFit(std::size_t handles, std::size_t messageBytes)
{
    return handles <= MaxHandles &&
           sizeof(wz_message) + handles * sizeof(wz_handle_slot) <= messageBytes;
}

inline std::size_t ArenaRoom(const wz_arena* arena)
{
    return arena == nullptr || arena->start == nullptr
               ? 0
               : static_cast<std::size_t>(arena->end - arena->start);
}

/// Measures a request to be sent, or a response: that one goes out with a whole header at least,
/// whatever its size word says.
/// @returns `XoOk`, `XoInvalidArgument` or `XoTooBig`
enum class MessageRole
{
    Request,
    Response,
};
int MeasureOutgoing(MessageRole role,
                    const wz_message* message,
                    const wz_arena* arena,
                    OutgoingSizes& sizes);

}  // namespace platform
