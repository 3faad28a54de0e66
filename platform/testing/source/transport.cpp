#include <algorithm>
#include <cstring>

#include <unistd.h>

#include <wz/transport.h>

#include "message_rules.h"
#include "run.h"

namespace platform::testing {
namespace {

/// Reads a message of the caller's, handles included.
int Write(World& world,
          MessageRole role,
          const wz_message* message,
          const wz_arena* arena,
          Letter& letter)
{
    OutgoingSizes sizes;
    if (const int result = MeasureOutgoing(role, message, arena, sizes); result != XoOk)
    {
        return result;
    }
    const auto* bytes = reinterpret_cast<const unsigned char*>(message);
    letter.message.assign(bytes, bytes + sizes.message);
    if (sizes.arena > 0)
    {
        letter.arena.assign(arena->start, arena->current);
    }
    const wz_handle_slot* slots = HandleSlots(static_cast<const void*>(message));
    for (std::size_t i = 0; i < sizes.handles; ++i)
    {
        const std::uint32_t handle = slots[i].handle & WzNoHandleInMessage;
        std::shared_ptr<DoubleEvent> event;
        if (handle != WzNoHandleInMessage)
        {
            const auto* end = world.Find<EventEnd>(handle);
            if (end == nullptr || end->setter)
            {
                return XoInvalidArgument;
            }
            event = end->event;
        }
        letter.handles.push_back(event);
    }
    return XoOk;
}

bool Fits(const Letter& letter, const wz_message& room, const wz_arena* arena)
{
    return letter.message.size() <= MessageBytes(room) && letter.arena.size() <= ArenaRoom(arena) &&
           letter.handles.size() <= HandleCount(room);
}

/// Fills the receiver's buffers; the letter fits.
void Read(World& world, const Letter& letter, wz_message* message, wz_arena* arena)
{
    const std::size_t room = MessageBytes(*message);
    auto* bytes = reinterpret_cast<unsigned char*>(message);
    std::memcpy(bytes, letter.message.data(), letter.message.size());
    std::memset(bytes + letter.message.size(), 0, room - letter.message.size());
    if (arena != nullptr && arena->start != nullptr)
    {
        std::copy(letter.arena.begin(), letter.arena.end(), arena->start);
        arena->current = arena->start + letter.arena.size();
    }
    wz_handle_slot* slots = HandleSlots(static_cast<void*>(message));
    for (std::size_t i = 0; i < letter.handles.size(); ++i)
    {
        const auto& event = letter.handles[i];
        slots[i] = {event ? world.Add(EventEnd{event, false}) : WzNoHandleInMessage, {}};
    }
}

/// Runs the handler of a remote service on the caller's thread.
int Ask(World& world,
        Lock& lock,
        const ServiceHandler& handler,
        Letter& request,
        const wz_message& room,
        const wz_arena* roomArena,
        Letter& reply)
{
    alignas(std::max_align_t) std::array<unsigned char, MaxMessageBytes> message{};
    auto* response = reinterpret_cast<wz_message*>(message.data());
    // Aligned as the handler may read it as the message's own type.
    alignas(std::max_align_t) std::array<unsigned char, MaxMessageBytes> requestBytes{};
    std::copy(request.message.begin(), request.message.end(), requestBytes.begin());
    const auto* asked = reinterpret_cast<const wz_message*>(requestBytes.data());
    response->iid = asked->iid;
    response->mid = asked->mid;
    response->size = room.size & (WzMessageSizeMask | WzMessageHandleCountMask);

    std::vector<unsigned char> arenaBytes(ArenaRoom(roomArena));
    wz_arena responseArena{
        arenaBytes.data(), arenaBytes.data(), arenaBytes.data() + arenaBytes.size()};
    const wz_arena requestArena{request.arena.data(),
                                request.arena.data() + request.arena.size(),
                                request.arena.data() + request.arena.size()};
    for (std::size_t i = 0;
         SlotsFit(HandleCount(room), MessageBytes(room)) && i < HandleCount(room);
         ++i)
    {
        HandleSlots(static_cast<void*>(response))[i] = {WzNoHandleInMessage, {}};
    }
    lock.unlock();
    const int result = handler(asked, &requestArena, response, &responseArena);
    lock.lock();
    return result != XoOk ? result
                          : Write(world, MessageRole::Response, response, &responseArena, reply);
}

int CallOnConnection(World& world,
                     Lock& lock,
                     Connection& connection,
                     Letter& request,
                     std::uint32_t limit,
                     wz_message* response,
                     wz_arena* responseArena)
{
    Letter reply;
    if (connection.handler)
    {
        const ServiceHandler handler = connection.handler;
        const int result = Ask(world, lock, handler, request, *response, responseArena, reply);
        if (result != XoOk)
        {
            return result;
        }
    }
    else
    {
        const std::uint64_t sequence = ++connection.sent;
        request.connection = connection.id;
        request.sequence = sequence;
        request.acknowledged = connection.acknowledged;
        connection.endpoint->requests.push_back(std::move(request));
        const Wake wake =
            world.Wait(lock,
                       Call::TransportCall,
                       limit,
                       [&] { return connection.closed || connection.replies.contains(sequence); });
        const auto node = connection.replies.extract(sequence);
        if (node.empty())
        {
            return wake == Wake::Expired ? WzTimedOut : XoObjectGone;
        }
        reply = std::move(node.mapped());
        connection.replies.clear();
        connection.acknowledged = sequence;
    }
    if (!Fits(reply, *response, responseArena))
    {
        world.HangUp(connection);
        return XoBroken;
    }
    Read(world, reply, response, responseArena);
    return XoOk;
}

int DoCall(WzTvoTransport* transport,
           const wz_message* request,
           const wz_arena* requestArena,
           wz_message* response,
           wz_arena* responseArena)
{
    const auto body = [=](World& world, Lock& lock)
    {
        const auto* found = world.Find<std::shared_ptr<Connection>>(transport->handle);
        if (found == nullptr)
        {
            return XoObjectGone;
        }
        const std::shared_ptr<Connection> connection = *found;
        Letter letter;
        const int result = Write(world, MessageRole::Request, request, requestArena, letter);
        if (result != XoOk)
        {
            return result;
        }
        const std::uint32_t limit = transport->callTimeout;
        const Wake wake = world.Wait(lock,
                                     Call::TransportCall,
                                     limit,
                                     [&] { return connection->closed || !connection->busy; });
        if (connection->closed || wake == Wake::Abandoned)
        {
            return XoObjectGone;
        }
        if (wake == Wake::Expired)
        {
            return WzTimedOut;
        }
        connection->busy = true;
        const int outcome =
            CallOnConnection(world, lock, *connection, letter, limit, response, responseArena);
        connection->busy = false;
        world.changed.notify_all();
        return outcome;
    };
    return Run(Call::TransportCall, body);
}

/// Hands out the next request that its receiver can take; others cost their sender the connection.
int TakeRequest(World& world,
                Endpoint& endpoint,
                WzTvoTransport* transport,
                wz_message* request,
                wz_arena* arena)
{
    while (!endpoint.requests.empty())
    {
        const Letter letter = std::move(endpoint.requests.front());
        endpoint.requests.pop_front();
        const std::shared_ptr<Connection> connection = endpoint.connections.at(letter.connection);
        if (!Fits(letter, *request, arena))
        {
            world.HangUp(*connection);
            continue;
        }
        Read(world, letter, request, arena);
        connection->owed = letter.sequence;
        connection->seenAcknowledged = letter.acknowledged;
        transport->origin = {letter.connection, letter.sequence};
        return XoOk;
    }
    return WzTimedOut;
}

int DoReceive(WzTvoTransport* transport, wz_message* request, wz_arena* requestArena)
{
    const auto body = [=](World& world, Lock& lock)
    {
        if (const auto replacement = world.overrides.transportReceive)
        {
            return RunOverride(lock, replacement, transport, request, requestArena);
        }
        const auto* found = world.Find<std::shared_ptr<Endpoint>>(transport->handle);
        if (found == nullptr)
        {
            return XoObjectGone;
        }
        const std::shared_ptr<Endpoint> endpoint = *found;
        for (;;)
        {
            const Wake wake =
                world.Wait(lock,
                           Call::TransportReceive,
                           transport->receiveTimeout,
                           [&] { return endpoint->closed || !endpoint->requests.empty(); });
            if (endpoint->closed || wake == Wake::Abandoned)
            {
                return XoObjectGone;
            }
            if (wake == Wake::Expired)
            {
                return WzTimedOut;
            }
            if (TakeRequest(world, *endpoint, transport, request, requestArena) == XoOk)
            {
                return XoOk;
            }
        }
    };
    return Run(Call::TransportReceive, body);
}

std::shared_ptr<Connection> FindOrigin(World& world,
                                       std::uint32_t handle,
                                       const WzTvoOrigin& origin)
{
    const auto* endpoint = world.Find<std::shared_ptr<Endpoint>>(handle);
    if (endpoint == nullptr)
    {
        return nullptr;
    }
    const auto found = (*endpoint)->connections.find(origin.connection);
    return found == (*endpoint)->connections.end() ? nullptr : found->second;
}

/// Sends the answer to the request that `debt` names, if it is still the one that `origin` means.
int Answer(World& world,
           std::uint32_t handle,
           WzTvoOrigin& origin,
           std::uint64_t Connection::*debt,
           const wz_message* response,
           const wz_arena* arena)
{
    const auto connection = FindOrigin(world, handle, origin);
    if (connection == nullptr || origin.sequence == 0 || (*connection).*debt != origin.sequence)
    {
        return XoObjectGone;
    }
    Letter letter;
    const int result = Write(world, MessageRole::Response, response, arena, letter);
    if (result == XoOk)
    {
        connection->replies[origin.sequence] = std::move(letter);
        (*connection).*debt = 0;
        origin.sequence = 0;
        world.changed.notify_all();
    }
    return result;
}

int DoReply(WzTvoTransport* transport, const wz_message* response, const wz_arena* responseArena)
{
    const auto body = [=](World& world, Lock&)
    {
        return Answer(world,
                      transport->handle,
                      transport->origin,
                      &Connection::owed,
                      response,
                      responseArena);
    };
    return Run(Call::TransportReply, body);
}

constexpr WzTvoTransportOperations Operations{&DoCall, &DoReceive, &DoReply};

}  // namespace
}  // namespace platform::testing

using namespace platform::testing;

void WzTvoTransport_Init(WzTvoTransport* transport,
                         std::uint32_t handle,
                         const void* /*options*/,
                         std::uint32_t /*optionsSize*/)
{
    *transport = {&Operations, handle, WzInfinite, WzInfinite, 0, {0, 0}};
}

void WzTvoSetTransportTimeouts(WzTvoTransport* transport,
                               std::uint32_t receiveTimeout,
                               std::uint32_t callTimeout)
{
    transport->receiveTimeout = receiveTimeout;
    transport->callTimeout = callTimeout;
}

int WzTvoTransportDetach(WzTvoTransport* transport, WzTvoTicket* ticket)
{
    const auto body = [=](World& world, Lock&)
    {
        const auto connection = FindOrigin(world, transport->handle, transport->origin);
        const std::uint64_t sequence = transport->origin.sequence;
        if (connection == nullptr || sequence == 0 || connection->owed != sequence)
        {
            return XoObjectGone;
        }
        connection->ticket = std::exchange(connection->owed, 0);
        *ticket = {transport->handle, 0, transport->origin};
        transport->origin.sequence = 0;
        return XoOk;
    };
    return Run(Call::TransportDetach, body);
}

int WzTvoTicketReply(WzTvoTicket* ticket, const wz_message* response, const wz_arena* responseArena)
{
    const auto body = [=](World& world, Lock&)
    {
        return Answer(
            world, ticket->handle, ticket->origin, &Connection::ticket, response, responseArena);
    };
    return Run(Call::TicketReply, body);
}

int WzTvoTransportGetPeer(const WzTvoTransport* transport, WzTvoPeer* peer)
{
    const auto body = [=](World& world, Lock&)
    {
        const auto connection = FindOrigin(world, transport->handle, transport->origin);
        if (connection == nullptr)
        {
            return XoObjectGone;
        }
        *peer = {static_cast<std::uint32_t>(::getpid()),
                 ::getuid(),
                 connection->id,
                 connection->seenAcknowledged};
        return XoOk;
    };
    return Run(Call::TransportGetPeer, body);
}
