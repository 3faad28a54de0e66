#include "packet.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <poll.h>

namespace platform {
namespace {

/// Room for one descriptor more than allowed, so that it is seen and not cut away.
constexpr std::size_t ControlBytes = CMSG_SPACE((MaxPacketDescriptors + 1) * sizeof(int));

/// One a thread, so that nothing is allocated per message and nothing goes while the process exits.
/// What was received stands there until the thread receives or sends its next packet.
unsigned char* PacketBuffer()
{
    thread_local std::array<unsigned char, MaxPacketBytes> buffer;
    return buffer.data();
}

bool HasHungUp(int socket)
{
    pollfd state{socket, POLLRDHUP, 0};
    return ::poll(&state, 1, 0) > 0;
}

ssize_t ReceiveMessage(int socket, msghdr& message, int flags)
{
    bool resetSeen = false;
    for (;;)
    {
        const ssize_t size = ::recvmsg(socket, &message, flags);
        if (size >= 0)
        {
            return size;
        }
        // A partner that went with our data unread leaves this error once; what it had sent before
        // still stands behind it.
        if (errno == ECONNRESET && !resetSeen)
        {
            resetSeen = true;
            continue;
        }
        if (errno != EINTR)
        {
            return size;
        }
    }
}

std::size_t ArenaBytesInPacket(const Frame& frame)
{
    return (frame.flags & FrameArenaInFile) == 0 ? frame.arenaBytes : 0;
}

std::size_t PacketBytes(const Frame& frame)
{
    return sizeof frame + frame.messageBytes + ArenaBytesInPacket(frame);
}

/// Up to this size a packet is joined here and sent with the plainer call: a copy costs less than
/// having the kernel collect the parts.
constexpr std::size_t MaxJoinedBytes = 4096;

ssize_t SendJoined(int socket, const Frame& frame, const void* message, const void* arena)
{
    unsigned char* const bytes = PacketBuffer();
    std::memcpy(bytes, &frame, sizeof frame);
    std::memcpy(bytes + sizeof frame, message, frame.messageBytes);
    if (frame.arenaBytes > 0)
    {
        std::memcpy(bytes + sizeof frame + frame.messageBytes, arena, frame.arenaBytes);
    }
    return ::send(socket, bytes, PacketBytes(frame), MSG_NOSIGNAL | MSG_DONTWAIT);
}

ssize_t SendParts(int socket,
                  const Frame& frame,
                  const void* message,
                  const void* arena,
                  const int* descriptors,
                  std::size_t descriptorCount)
{
    iovec data[] = {
        {const_cast<Frame*>(&frame), sizeof frame},
        {const_cast<void*>(message), frame.messageBytes},
        {const_cast<void*>(arena), ArenaBytesInPacket(frame)},
    };
    msghdr header{};
    header.msg_iov = data;
    header.msg_iovlen = data[2].iov_len > 0 ? 3 : 2;

    alignas(cmsghdr) unsigned char control[ControlBytes];
    if (descriptorCount > 0)
    {
        const std::size_t bytes = descriptorCount * sizeof(int);
        std::memset(control, 0, sizeof control);
        header.msg_control = control;
        header.msg_controllen = CMSG_SPACE(bytes);
        cmsghdr* rights = CMSG_FIRSTHDR(&header);
        rights->cmsg_level = SOL_SOCKET;
        rights->cmsg_type = SCM_RIGHTS;
        rights->cmsg_len = CMSG_LEN(bytes);
        std::memcpy(CMSG_DATA(rights), descriptors, bytes);
    }
    return ::sendmsg(socket, &header, MSG_NOSIGNAL | MSG_DONTWAIT);
}

Departure WhyNotSent(int error)
{
    switch (error)
    {
        case EAGAIN:
            return Departure::Full;
        case ENOBUFS:
        case ENOMEM:
        case ETOOMANYREFS:
        case EMSGSIZE:
            return Departure::NoResources;
        default:
            return Departure::Gone;
    }
}

}  // namespace

bool PacketDescriptors::Adopt(const msghdr& message)
{
    bool fits = true;
    auto* header = const_cast<msghdr*>(&message);
    for (cmsghdr* control = CMSG_FIRSTHDR(header); control != nullptr;
         control = CMSG_NXTHDR(header, control))
    {
        if (control->cmsg_level != SOL_SOCKET || control->cmsg_type != SCM_RIGHTS)
        {
            fits = false;
            continue;
        }
        const std::size_t count = (control->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (std::size_t i = 0; i < count; ++i)
        {
            int value = -1;
            std::memcpy(&value, CMSG_DATA(control) + i * sizeof value, sizeof value);
            Descriptor descriptor(value);
            if (m_count < m_descriptors.size())
            {
                m_descriptors[m_count++] = std::move(descriptor);
            }
            else
            {
                fits = false;
            }
        }
    }
    return fits;
}

Arrival ReceivePacket(int socket, Waiting waiting, ReceivedPacket& packet)
{
    unsigned char* buffer = PacketBuffer();
    iovec data{buffer, MaxPacketBytes};
    alignas(cmsghdr) unsigned char control[ControlBytes];
    msghdr message{};
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof control;

    const int flags = MSG_CMSG_CLOEXEC | (waiting == Waiting::No ? MSG_DONTWAIT : 0);
    const ssize_t size = ReceiveMessage(socket, message, flags);
    if (size < 0)
    {
        return errno == EAGAIN ? Arrival::Nothing : Arrival::Ended;
    }
    const bool adopted = packet.descriptors.Adopt(message);
    packet.bytes = buffer;
    packet.size = static_cast<std::size_t>(size);
    if ((message.msg_flags & MSG_CTRUNC) != 0 || !adopted)
    {
        packet.fault = "more descriptors than a packet may bring, or than there is room for";
    }
    else if ((message.msg_flags & MSG_TRUNC) != 0)
    {
        packet.fault = "a packet that is too long";
    }
    else if (size == 0)
    {
        // The end of the stream looks like an empty packet.
        if (HasHungUp(socket))
        {
            return Arrival::Ended;
        }
        packet.fault = "an empty packet";
    }
    return packet.fault != nullptr ? Arrival::Broken : Arrival::Packet;
}

Departure SendPacket(int socket,
                     const Frame& frame,
                     const void* message,
                     const void* arena,
                     const int* descriptors,
                     std::size_t descriptorCount)
{
    const bool isSmall = descriptorCount == 0 && PacketBytes(frame) <= MaxJoinedBytes;
    for (;;)
    {
        const ssize_t sent =
            isSmall ? SendJoined(socket, frame, message, arena)
                    : SendParts(socket, frame, message, arena, descriptors, descriptorCount);
        if (sent >= 0)
        {
            return Departure::Sent;
        }
        if (errno != EINTR)
        {
            return WhyNotSent(errno);
        }
    }
}

}  // namespace platform
