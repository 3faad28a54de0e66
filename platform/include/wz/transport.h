#pragma once

#include <cstdint>

#include "wz/message.h"

struct WzTvoTransport;

/// The operations of a transport. Each returns 0 or a failure code of the platform; -11 says that a
/// time limit has passed and is used for nothing else.
///
/// A null arena stands for one without room. Where a response or request arrives, the arena's
/// `current` is set behind the received bytes; on any failure the contents of message buffer and
/// arena are undefined and no handle is left open.
struct WzTvoTransportOperations
{
    /// One blocking round trip on a client's connection. The response's size word states the room
    /// for the response and, in bits 23-30, how many handles it may bring; the received message
    /// replaces both. Several threads may call on one connection; they queue, each within its own
    /// limit. A call that has run into its limit is abandoned: its late reply is discarded.
    int (*call)(WzTvoTransport* transport,
                const wz_message* request,
                const wz_arena* requestArena,
                wz_message* response,
                wz_arena* responseArena);

    /// Waits for a request on an endpoint. The request's size word states the buffer's size; bytes
    /// behind what was received are zeroed. The origin of the request is kept in the record for
    /// `reply`. A permanent failure returns after at least 100 ms, so a loop does not spin.
    int (*receive)(WzTvoTransport* transport, wz_message* request, wz_arena* requestArena);

    /// Answers the request received last through this record. Never waits: a caller that does not
    /// read loses its connection. Sends at least the 24 bytes of the header.
    int (*reply)(WzTvoTransport* transport,
                 const wz_message* response,
                 const wz_arena* responseArena);
};

/// A request whose answer is still owed: which connection, and which of its calls.
struct WzTvoOrigin
{
    std::uint64_t connection;  ///< 0: none
    std::uint64_t sequence;
};

/// A transport on one endpoint or connection. A plain record that is copied bit by bit and owns
/// nothing; the handle stays its creator's. To be used by one thread at a time.
struct WzTvoTransport
{
    const WzTvoTransportOperations* operations;
    std::uint32_t handle;
    std::uint32_t receiveTimeout;  ///< milliseconds; 0xFFFFFFFF waits without a limit
    std::uint32_t callTimeout;     ///< milliseconds; 0xFFFFFFFF waits without a limit
    std::uint32_t reserved;
    WzTvoOrigin origin;
};

static_assert(sizeof(WzTvoTransport) == 40);

inline constexpr std::uint32_t WzInfinite = 0xFFFFFFFFU;

/// The time-out result of call and receive.
inline constexpr int WzTimedOut = -11;

/// Makes a transport on the endpoint or connection `handle`, both limits infinite. Touches neither;
/// a bad handle shows at the first operation. The last two arguments are unused: pass null and 0.
void WzTvoTransport_Init(WzTvoTransport* transport,
                         std::uint32_t handle,
                         const void* options,
                         std::uint32_t optionsSize);

/// Sets the limits in milliseconds of receiving and of a client's call. Monotonic clock.
void WzTvoSetTransportTimeouts(WzTvoTransport* transport,
                               std::uint32_t receiveTimeout,
                               std::uint32_t callTimeout);

/// A request detached for a later answer. At most one a connection is valid: detaching a newer
/// request of the same connection voids the older ticket, and so does the connection's end.
struct WzTvoTicket
{
    std::uint32_t handle;
    std::uint32_t reserved;
    WzTvoOrigin origin;
};

/// Takes the request received last out of `transport` so that it can be answered later, from the
/// same thread. `reply` on the transport fails until the next request.
/// @returns 0, or a failure code when no request is waiting for its answer
[[nodiscard]] int WzTvoTransportDetach(WzTvoTransport* transport, WzTvoTicket* ticket);

/// Answers a detached request and voids the ticket. A void ticket gives a failure code and nothing
/// else happens.
int WzTvoTicketReply(WzTvoTicket* ticket,
                     const wz_message* response,
                     const wz_arena* responseArena);

/// Who has sent the request received last: the kernel's word, taken when the connection was made.
struct WzTvoPeer
{
    std::uint32_t pid;
    std::uint32_t uid;
    std::uint64_t connection;            ///< unique in this process for its life
    std::uint64_t acknowledgedSequence;  ///< last call whose reply has reached that caller
};

/// @returns 0, or a failure code when no request was received or its connection has ended
[[nodiscard]] int WzTvoTransportGetPeer(const WzTvoTransport* transport, WzTvoPeer* peer);
