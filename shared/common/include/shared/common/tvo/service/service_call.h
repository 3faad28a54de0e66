#pragma once

#include <cstdint>
#include <type_traits>

#include <component/plk/exceptions.h>
#include <wz/message.h>
#include <wz/transport.h>

namespace tvo::service {

/// A request whose answer may come later. A value that is copied and owns nothing. It becomes void
/// when the caller has gone, has asked anew on the same connection (which it does only after it has
/// given the former call up), or has been answered.
using Ticket = WzTvoTicket;

/// One request in the hands of its handler. All that it points to is the loop's and holds until the
/// handler returns.
struct ServiceCall
{
    const wz_message* request;     ///< bytes behind what was received are zero
    const wz_arena* requestArena;  ///< `current - start` bytes were received
    wz_message* response;          ///< all zero but for iid, mid and the size of a bare header
    wz_arena* responseArena;       ///< empty; its bytes are not cleared
    std::uint32_t responseRoom;    ///< bytes of the largest response that was declared
    WzTvoPeer caller;
    Ticket ticket;  ///< for `IServiceLoop::Answer`, valid once the handler has deferred

    /// Number of this call on its connection: its answer has reached the caller when a later call
    /// of that connection states an acknowledged sequence as high as this.
    std::uint64_t Sequence() const
    {
        return ticket.origin.sequence;
    }

    /// The request as the record of its method.
    /// @returns null when the message is not as long as that record
    template <typename Record>
    const Record* Request() const
    {
        static_assert(std::is_trivially_copyable_v<Record> && std::is_standard_layout_v<Record>);
        return (request->size & WzMessageSizeMask) == sizeof(Record)
                   ? reinterpret_cast<const Record*>(request)
                   : nullptr;
    }

    /// The response as the record of its method, which sets its size. Its fields are zero.
    /// @throws zin::CheckFailedException  when the interface has declared less room
    template <typename Record>
    Record& Response() const
    {
        static_assert(std::is_trivially_copyable_v<Record> && std::is_standard_layout_v<Record>);
        ZIN_CHECK(sizeof(Record) <= responseRoom, "response is larger than declared");
        response->size = sizeof(Record);
        return *reinterpret_cast<Record*>(response);
    }
};

/// What becomes of a request when its handler returns.
enum class Outcome
{
    Answer,  ///< the response goes out as it stands
    Defer,   ///< nothing goes out; the ticket answers it later
    Reject,  ///< unknown method or a message that makes no sense: a bare header, failed bit set
};

}  // namespace tvo::service
