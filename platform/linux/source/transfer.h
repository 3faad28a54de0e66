#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include <wz/message.h>

#include "event_object.h"
#include "frame.h"
#include "packet.h"

namespace platform {

/// A message of this process on its way out: measured, its handles looked up, a large arena put
/// into a file. Refers to the caller's buffers, which must outlive it.
class OutgoingMessage final
{
public:
    /// @returns `XoOk` or why the message cannot be sent
    int Prepare(MessageRole role, const wz_message* message, const wz_arena* arena);

    Departure Send(int socket,
                   FrameKind kind,
                   std::uint64_t sequence,
                   std::uint64_t acknowledged) const;

private:
    int PrepareHandles(std::size_t count);

    const wz_message* m_message = nullptr;
    const unsigned char* m_arena = nullptr;
    OutgoingSizes m_sizes;
    std::uint8_t m_handleMask = 0;
    std::array<std::shared_ptr<EventWaiter>, MaxHandles> m_handles;
    std::size_t m_handleCount = 0;
    Descriptor m_arenaFile;
};

/// Moves a sound packet that fits into the receiver's buffers. The message's room is `room`; what
/// stays free of it is zeroed. On failure no handle stays open.
/// @param reason  what is wrong with the packet, or null when it is this process's own failure
/// @returns `XoOk`, `XoBroken` or `XoNoResources`
int Deliver(ReceivedPacket& packet,
            const Frame& frame,
            std::size_t room,
            wz_message* message,
            wz_arena* arena,
            const char*& reason);

}  // namespace platform
