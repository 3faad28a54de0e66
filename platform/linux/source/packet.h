#pragma once

#include <array>
#include <cstddef>

#include <sys/socket.h>

#include "descriptor.h"
#include "frame.h"

namespace platform {

/// The descriptors that came with a packet. Closes all that were not taken out, on every path.
class PacketDescriptors final
{
public:
    std::size_t Count() const
    {
        return m_count;
    }

    Descriptor Take(std::size_t index)
    {
        return std::move(m_descriptors[index]);
    }

    /// Takes over what the kernel has put into the process.
    /// @returns false when there is more than a packet may bring; the rest is closed
    bool Adopt(const msghdr& message);

private:
    std::array<Descriptor, MaxPacketDescriptors> m_descriptors;
    std::size_t m_count = 0;
};

enum class Arrival
{
    Packet,
    Nothing,  ///< nothing there yet
    Ended,    ///< the other side has gone
    Broken,   ///< a packet that no honest sender makes; `fault` tells
};

enum class Waiting
{
    No,
    UntilSomethingComes,
};

/// One packet as it came from a socket.
struct ReceivedPacket
{
    /// Buffer of the calling thread; holds until its next `ReceivePacket` or `SendPacket`.
    const unsigned char* bytes = nullptr;
    std::size_t size = 0;
    PacketDescriptors descriptors;
    const char* fault = nullptr;
};

Arrival ReceivePacket(int socket, Waiting waiting, ReceivedPacket& packet);

enum class Departure
{
    Sent,
    Full,  ///< no room in the socket now
    Gone,
    NoResources,
};

/// Sends a frame with its message and arena. Never waits.
Departure SendPacket(int socket,
                     const Frame& frame,
                     const void* message,
                     const void* arena,
                     const int* descriptors,
                     std::size_t descriptorCount);

}  // namespace platform
