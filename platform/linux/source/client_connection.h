#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include <wz/message.h>

#include "deadline.h"
#include "descriptor.h"
#include "object.h"
#include "packet.h"
#include "peer.h"
#include "rendezvous.h"
#include "transfer.h"
#include "turn.h"

namespace platform {

/// The client's end of a connection. Threads that call queue, each within its own limit.
class ClientConnection final : public Object
{
public:
    static constexpr ObjectKind HandleKind = ObjectKind::ClientConnection;

    /// @param place,encodedName  the lock file of the server
    ClientConnection(Descriptor socket, const Peer& server, Place place, std::string encodedName);

    int Call(const Deadline& deadline,
             const wz_message* request,
             const wz_arena* requestArena,
             wz_message* response,
             wz_arena* responseArena);

    /// Interface number of an endpoint of the server, or `InvalidRiid`.
    std::uint16_t FindRiid(const char* endpoint) const;

    void Close() override;

private:
    int SendRequest(const OutgoingMessage& request, const Deadline& deadline);
    int AwaitReply(const Deadline& deadline, wz_message* response, wz_arena* responseArena);
    int TakeReply(ReceivedPacket& packet, wz_message* response, wz_arena* responseArena);
    int Break(const char* reason);
    int Fail(int result);

    const Descriptor m_socket;
    const Peer m_server;
    const Place m_place;
    const std::string m_encodedName;
    std::atomic<bool> m_closed = false;

    Turn m_turn;                       ///< taken during a call; guards what follows
    std::uint64_t m_sequence = 0;      ///< of the request sent last
    std::uint64_t m_acknowledged = 0;  ///< of the reply received last
    std::uint64_t m_unanswered = 0;    ///< requests, abandoned ones too, whose reply is due
};

}  // namespace platform
