#include "client_connection.h"

#include <utility>

#include <poll.h>
#include <sys/socket.h>

#include <wz/transport.h>

#include "lock_file.h"

namespace platform {
namespace {

/// What a reply that came too late amounts to, inside this file.
constexpr int ReplyOfFormerCall = 1;

void WaitFor(int socket, short events, const Deadline& deadline)
{
    pollfd state{socket, events, 0};
    ::poll(&state, 1, deadline.Left());
}

}  // namespace

ClientConnection::ClientConnection(Descriptor socket,
                                   const Peer& server,
                                   Place place,
                                   std::string encodedName)
    : Object(ObjectKind::ClientConnection),
      m_socket(std::move(socket)),
      m_server(server),
      m_place(place),
      m_encodedName(std::move(encodedName))
{}

int ClientConnection::Call(const Deadline& deadline,
                           const wz_message* request,
                           const wz_arena* requestArena,
                           wz_message* response,
                           wz_arena* responseArena)
{
    if (response == nullptr || MessageBytes(*response) < sizeof(wz_message))
    {
        return XoInvalidArgument;
    }
    OutgoingMessage message;
    if (const int result = message.Prepare(MessageRole::Request, request, requestArena);
        result != XoOk)
    {
        return result;
    }
    switch (m_turn.Take(deadline))
    {
        case Turn::Result::Mine:
            break;
        case Turn::Result::TimedOut:
            return WzTimedOut;
        case Turn::Result::Closed:
            return XoObjectGone;
    }
    int result = SendRequest(message, deadline);
    if (result == XoOk)
    {
        result = AwaitReply(deadline, response, responseArena);
    }
    m_turn.Give();
    return result;
}

int ClientConnection::SendRequest(const OutgoingMessage& request, const Deadline& deadline)
{
    while (!m_closed)
    {
        const std::uint64_t next = m_sequence + 1;
        switch (request.Send(m_socket.Get(), FrameKind::Request, next, m_acknowledged))
        {
            case Departure::Sent:
                m_sequence = next;
                ++m_unanswered;
                return XoOk;
            case Departure::Gone:
                return Fail(XoObjectGone);
            case Departure::NoResources:
                return XoNoResources;
            case Departure::Full:
                break;
        }
        if (deadline.HasPassed())
        {
            return WzTimedOut;
        }
        WaitFor(m_socket.Get(), POLLOUT, deadline);
    }
    return XoObjectGone;
}

int ClientConnection::AwaitReply(const Deadline& deadline,
                                 wz_message* response,
                                 wz_arena* responseArena)
{
    for (;;)
    {
        // Whatever has come by the end of the limit counts, so the last look comes after it.
        const bool lastLook = deadline.HasPassed();
        if (!deadline.IsInfinite() && !lastLook)
        {
            WaitFor(m_socket.Get(), POLLIN, deadline);
        }
        ReceivedPacket packet;
        const Waiting waiting = deadline.IsInfinite() ? Waiting::UntilSomethingComes : Waiting::No;
        int result = ReplyOfFormerCall;
        switch (ReceivePacket(m_socket.Get(), waiting, packet))
        {
            case Arrival::Packet:
                result = TakeReply(packet, response, responseArena);
                break;
            case Arrival::Nothing:
                if (lastLook)
                {
                    return WzTimedOut;
                }
                break;
            case Arrival::Ended:
                return Fail(XoObjectGone);
            case Arrival::Broken:
                return Break(packet.fault);
        }
        if (result != ReplyOfFormerCall)
        {
            return result;
        }
    }
}

int ClientConnection::TakeReply(ReceivedPacket& packet,
                                wz_message* response,
                                wz_arena* responseArena)
{
    Frame frame;
    if (const char* fault = CheckPacket(
            packet.bytes, packet.size, packet.descriptors.Count(), FrameKind::Reply, frame))
    {
        return Break(fault);
    }
    if (frame.sequence > m_sequence || frame.sequence == 0)
    {
        return Break("a reply to no call");
    }
    const bool late = frame.sequence < m_sequence;
    if (--m_unanswered == 0 && late)
    {
        return Break("more replies than calls");
    }
    if (late)
    {
        return ReplyOfFormerCall;
    }
    const MessageRoom room{
        MessageBytes(*response), ArenaRoom(responseArena), HandleCount(*response)};
    const char* fault = CheckRoom(packet.bytes, frame, room);
    int result = XoBroken;
    if (fault == nullptr)
    {
        m_acknowledged = frame.sequence;
        result = Deliver(packet, frame, room.message, response, responseArena, fault);
    }
    return fault != nullptr ? Break(fault) : result;
}

int ClientConnection::Break(const char* reason)
{
    if (m_closed)
    {
        return XoObjectGone;
    }
    LogOffence(m_server, reason);
    return Fail(XoBroken);
}

int ClientConnection::Fail(int result)
{
    Close();
    return result;
}

std::uint16_t ClientConnection::FindRiid(const char* endpoint) const
{
    const int folder = Rendezvous::Instance().Open(m_place, Purpose::Look);
    const auto lines = folder >= 0 ? ReadHeldLockFile(folder, m_encodedName) : std::nullopt;
    if (lines)
    {
        for (const LockFileLine& line : *lines)
        {
            if (line.kind == LockFileLine::Kind::Endpoint && line.first == endpoint)
            {
                return static_cast<std::uint16_t>(line.number);
            }
        }
    }
    return InvalidRiid;
}

void ClientConnection::Close()
{
    m_closed = true;
    m_turn.Close();
    ::shutdown(m_socket.Get(), SHUT_RDWR);
}

}  // namespace platform
