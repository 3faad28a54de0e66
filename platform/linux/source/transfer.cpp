#include "transfer.h"

#include <cstring>

#include "arena_file.h"
#include "handle_table.h"

namespace platform {
namespace {

/// Gives received waiting ends their handles; takes all back unless told that they are delivered.
class NewHandles final
{
public:
    ~NewHandles()
    {
        for (std::size_t i = 0; i < m_count; ++i)
        {
            HandleTable::Instance().Close(m_handles[i]);
        }
    }

    std::uint32_t Add(std::shared_ptr<EventWaiter> waiter)
    {
        const std::uint32_t handle = HandleTable::Instance().Add(std::move(waiter));
        if (handle != XoInvalidHandle)
        {
            m_handles[m_count++] = handle;
        }
        return handle;
    }

    void Keep()
    {
        m_count = 0;
    }

private:
    std::array<std::uint32_t, MaxHandles> m_handles{};
    std::size_t m_count = 0;
};

int DeliverHandles(ReceivedPacket& packet,
                   const Frame& frame,
                   wz_message* message,
                   NewHandles& handles,
                   const char*& reason)
{
    std::size_t descriptor = (frame.flags & FrameArenaInFile) != 0 ? 1 : 0;
    wz_handle_slot* slots = HandleSlots(static_cast<void*>(message));
    const std::size_t count = HandleCount(*message);
    for (std::size_t i = 0; i < count; ++i)
    {
        slots[i] = {WzNoHandleInMessage, {}};
        if ((frame.handleMask >> i & 1U) == 0)
        {
            continue;
        }
        auto waiter = EventWaiter::FromForeign(packet.descriptors.Take(descriptor++));
        if (waiter == nullptr)
        {
            reason = "a handle that is no event object";
            return XoBroken;
        }
        const std::uint32_t handle = handles.Add(std::move(waiter));
        if (handle == XoInvalidHandle)
        {
            return XoNoResources;
        }
        slots[i].handle = handle;
    }
    return XoOk;
}

}  // namespace

int OutgoingMessage::Prepare(MessageRole role, const wz_message* message, const wz_arena* arena)
{
    if (const int result = MeasureOutgoing(role, message, arena, m_sizes); result != XoOk)
    {
        return result;
    }
    m_message = message;
    if (const int result = PrepareHandles(m_sizes.handles); result != XoOk)
    {
        return result;
    }
    if (m_sizes.arena > 0)
    {
        m_arena = arena->start;
    }
    if (m_sizes.arena > MaxInlineArena)
    {
        m_arenaFile = MakeArenaFile(m_arena, m_sizes.arena);
        return m_arenaFile ? XoOk : XoNoResources;
    }
    return XoOk;
}

int OutgoingMessage::PrepareHandles(std::size_t count)
{
    const wz_handle_slot* slots = HandleSlots(static_cast<const void*>(m_message));
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::uint32_t handle = slots[i].handle & WzNoHandleInMessage;
        if (handle == WzNoHandleInMessage)
        {
            continue;
        }
        auto waiter = HandleTable::Instance().Find<EventWaiter>(handle);
        if (waiter == nullptr)
        {
            return XoInvalidArgument;
        }
        m_handles[m_handleCount++] = std::move(waiter);
        m_handleMask = static_cast<std::uint8_t>(m_handleMask | 1U << i);
    }
    return XoOk;
}

Departure OutgoingMessage::Send(int socket,
                                FrameKind kind,
                                std::uint64_t sequence,
                                std::uint64_t acknowledged) const
{
    const Frame frame{
        FrameMagic,
        kind,
        m_handleMask,
        m_arenaFile ? FrameArenaInFile : std::uint16_t{0},
        sequence,
        acknowledged,
        static_cast<std::uint32_t>(m_sizes.message),
        static_cast<std::uint32_t>(m_sizes.arena),
    };
    std::array<int, MaxPacketDescriptors> descriptors;
    std::size_t count = 0;
    if (m_arenaFile)
    {
        descriptors[count++] = m_arenaFile.Get();
    }
    for (std::size_t i = 0; i < m_handleCount; ++i)
    {
        descriptors[count++] = m_handles[i]->Socket();
    }
    return SendPacket(socket, frame, m_message, m_arena, descriptors.data(), count);
}

int Deliver(ReceivedPacket& packet,
            const Frame& frame,
            std::size_t room,
            wz_message* message,
            wz_arena* arena,
            const char*& reason)
{
    reason = nullptr;
    if ((frame.flags & FrameArenaInFile) != 0)
    {
        reason = ReadArenaFile(packet.descriptors.Take(0), arena->start, frame.arenaBytes);
        if (reason != nullptr)
        {
            return XoBroken;
        }
    }
    else if (frame.arenaBytes > 0)
    {
        std::memcpy(
            arena->start, packet.bytes + sizeof(Frame) + frame.messageBytes, frame.arenaBytes);
    }
    if (arena != nullptr && arena->start != nullptr)
    {
        arena->current = arena->start + frame.arenaBytes;
    }
    auto* bytes = reinterpret_cast<unsigned char*>(message);
    std::memcpy(bytes, packet.bytes + sizeof(Frame), frame.messageBytes);
    std::memset(bytes + frame.messageBytes, 0, room - frame.messageBytes);

    NewHandles handles;
    const int result = DeliverHandles(packet, frame, message, handles, reason);
    if (result == XoOk)
    {
        handles.Keep();
    }
    return result;
}

}  // namespace platform
