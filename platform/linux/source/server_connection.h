#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>

#include <wz/transport.h>

#include "packet.h"
#include "peer.h"
#include "transfer.h"

namespace platform {

/// The server's end of one connection. Owned by its endpoint, held by the threads that use it.
class ServerConnection final
{
public:
    ServerConnection(std::uint64_t id, Descriptor socket, const Peer& peer);

    std::uint64_t Id() const
    {
        return m_id;
    }

    int Socket() const
    {
        return m_socket.Get();
    }

    /// Reads one request. `Arrival::Broken` has been logged already.
    /// @returns `Arrival::Packet` also when this process had no resources to take it; `result`
    ///          tells
    Arrival Receive(wz_message* request, wz_arena* arena, WzTvoOrigin& origin, int& result);

    enum class Debt
    {
        Reply,   ///< of the request received last
        Ticket,  ///< of the request detached last
    };

    /// Sends the answer if it is still owed. After `XoBroken` and `XoNoResources` the caller would
    /// wait for ever: the connection has to be ended.
    int Answer(Debt debt,
               std::uint64_t sequence,
               const wz_message* response,
               const wz_arena* arena);

    /// Turns the debt of the request received last into that of a ticket.
    bool Detach(std::uint64_t sequence);

    WzTvoPeer Describe();

    /// Ends the connection; the caller at the other end fails at once.
    void End();

private:
    const char* TakeSequence(const Frame& frame);
    const char* Take(ReceivedPacket& packet,
                     wz_message* request,
                     wz_arena* arena,
                     WzTvoOrigin& origin,
                     int& result);

    const std::uint64_t m_id;
    const Descriptor m_socket;
    const Peer m_peer;

    std::mutex m_mutex;
    bool m_ended = false;
    std::uint64_t m_received = 0;      ///< sequence of the request received last
    std::uint64_t m_answered = 0;      ///< highest sequence answered
    std::uint64_t m_acknowledged = 0;  ///< last answer that has reached the caller
    std::uint64_t m_owed = 0;          ///< request received last, while it is not answered
    std::uint64_t m_ticket = 0;        ///< request detached last, while it is not answered
};

}  // namespace platform
