#include "server_connection.h"

#include <algorithm>
#include <utility>

#include <sys/socket.h>

#include "log.h"

namespace platform {

ServerConnection::ServerConnection(std::uint64_t id, Descriptor socket, const Peer& peer)
    : m_id(id), m_socket(std::move(socket)), m_peer(peer)
{}

Arrival ServerConnection::Receive(wz_message* request,
                                  wz_arena* arena,
                                  WzTvoOrigin& origin,
                                  int& result)
{
    const std::lock_guard lock(m_mutex);
    if (m_ended)
    {
        return Arrival::Ended;
    }
    ReceivedPacket packet;
    Arrival arrival = ReceivePacket(m_socket.Get(), Waiting::No, packet);
    const char* fault = packet.fault;
    if (arrival == Arrival::Packet)
    {
        fault = Take(packet, request, arena, origin, result);
    }
    if (fault != nullptr)
    {
        LogOffence(m_peer, fault);
        arrival = Arrival::Broken;
    }
    return arrival;
}

const char* ServerConnection::Take(ReceivedPacket& packet,
                                   wz_message* request,
                                   wz_arena* arena,
                                   WzTvoOrigin& origin,
                                   int& result)
{
    Frame frame;
    const char* fault = CheckPacket(
        packet.bytes, packet.size, packet.descriptors.Count(), FrameKind::Request, frame);
    const MessageRoom room{MessageBytes(*request), ArenaRoom(arena), HandleCount(*request)};
    fault = fault != nullptr ? fault : CheckRoom(packet.bytes, frame, room);
    fault = fault != nullptr ? fault : TakeSequence(frame);
    if (fault != nullptr)
    {
        return fault;
    }
    result = Deliver(packet, frame, room.message, request, arena, fault);
    origin = {m_id, frame.sequence};
    return fault;
}

/// Calls are numbered upwards, and nobody has got an answer that was not sent.
const char* ServerConnection::TakeSequence(const Frame& frame)
{
    if (frame.sequence <= m_received)
    {
        return "a sequence number that does not rise";
    }
    if (frame.acknowledged < m_acknowledged || frame.acknowledged > m_answered)
    {
        return "an acknowledged sequence number that cannot be";
    }
    m_received = frame.sequence;
    m_acknowledged = frame.acknowledged;
    m_owed = frame.sequence;
    // Who asks anew has given up what it had asked before.
    m_ticket = 0;
    return nullptr;
}

int ServerConnection::Answer(Debt debt,
                             std::uint64_t sequence,
                             const wz_message* response,
                             const wz_arena* arena)
{
    const std::lock_guard lock(m_mutex);
    std::uint64_t& owed = debt == Debt::Reply ? m_owed : m_ticket;
    if (m_ended || sequence == 0 || owed != sequence)
    {
        return XoObjectGone;
    }
    OutgoingMessage message;
    if (const int result = message.Prepare(MessageRole::Response, response, arena); result != XoOk)
    {
        return result;
    }
    owed = 0;
    m_answered = std::max(m_answered, sequence);
    switch (message.Send(m_socket.Get(), FrameKind::Reply, sequence, 0))
    {
        case Departure::Sent:
            return XoOk;
        case Departure::Full:
            LogOffence(m_peer, "it does not read its replies");
            return XoBroken;
        case Departure::NoResources:
            return XoNoResources;
        case Departure::Gone:
            break;
    }
    return XoBroken;
}

bool ServerConnection::Detach(std::uint64_t sequence)
{
    const std::lock_guard lock(m_mutex);
    if (m_ended || sequence == 0 || m_owed != sequence)
    {
        return false;
    }
    m_ticket = std::exchange(m_owed, 0);
    return true;
}

WzTvoPeer ServerConnection::Describe()
{
    const std::lock_guard lock(m_mutex);
    return {m_peer.pid, m_peer.uid, m_id, m_acknowledged};
}

void ServerConnection::End()
{
    const std::lock_guard lock(m_mutex);
    m_ended = true;
    ::shutdown(m_socket.Get(), SHUT_RDWR);
}

}  // namespace platform
