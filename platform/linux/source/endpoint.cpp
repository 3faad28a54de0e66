#include "endpoint.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <poll.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>

#include "handshake.h"
#include "log.h"

namespace platform {
namespace {

constexpr std::uint64_t CloseKey = 0;
constexpr std::uint64_t BacklogKey = 1;

// A connection's id is its slot with a number above it that no other connection ever has.
constexpr unsigned SlotBits = 10;
constexpr std::uint64_t SlotMask = (1U << SlotBits) - 1;
static_assert(MaxConnections == SlotMask + 1);

constexpr std::size_t SweepFrom = MaxConnections - MaxConnections / 8;
constexpr int ConnectionsAtOnce = 64;
constexpr auto RestTime = std::chrono::milliseconds(100);
constexpr std::uint32_t HangUpEvents = EPOLLHUP | EPOLLRDHUP | EPOLLERR;

std::uint64_t NextConnectionNumber()
{
    static std::atomic<std::uint64_t> number = 0;
    return ++number;
}

}  // namespace

Endpoint::Endpoint()
    : Object(ObjectKind::Endpoint),
      m_epoll(::epoll_create1(EPOLL_CLOEXEC)),
      m_closeEvent(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{}

std::shared_ptr<Endpoint> Endpoint::Make(std::optional<BoundName> name)
{
    std::shared_ptr<Endpoint> endpoint(new Endpoint);
    if (!endpoint->m_epoll || !endpoint->m_closeEvent ||
        !endpoint->Watch(endpoint->m_closeEvent.Get(), CloseKey, EPOLLIN))
    {
        return nullptr;
    }
    if (name)
    {
        endpoint->m_hasName = true;
        endpoint->m_backlog.emplace(name->TakeSocket());
        endpoint->m_name.emplace(std::move(*name));
        if (!endpoint->Watch(endpoint->m_backlog->Socket(), BacklogKey, EPOLLIN))
        {
            return nullptr;
        }
    }
    return endpoint;
}

bool Endpoint::Watch(int descriptor, std::uint64_t key, std::uint32_t events)
{
    epoll_event event{};
    event.events = events;
    event.data.u64 = key;
    return ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_ADD, descriptor, &event) == 0;
}

int Endpoint::Receive(const Deadline& deadline,
                      wz_message* request,
                      wz_arena* arena,
                      WzTvoOrigin& origin)
{
    for (std::size_t overtime = 0;;)
    {
        epoll_event event;
        const int rest = m_restUntil != 0 ? RestLeft() : -1;
        const int left = deadline.Left();
        const int wait = rest < 0 ? left : left < 0 ? rest : std::min(rest, left);
        const int found = ::epoll_wait(m_epoll.Get(), &event, 1, wait);
        if (m_closed)
        {
            return XoObjectGone;
        }
        if (found < 0 && errno != EINTR)
        {
            return XoBroken;
        }
        if (found > 0)
        {
            const auto result = Serve(event.data.u64, event.events, request, arena, origin);
            if (result)
            {
                return *result;
            }
        }
        // What is no request may hide one, so there is a look behind it even when the time is up.
        // Peers that only make trouble must not hold the caller longer than it wants, though.
        if (deadline.HasPassed() && (found <= 0 || ++overtime > MaxConnections))
        {
            return WzTimedOut;
        }
    }
}

/// @returns the result of receiving, or nothing when the event was no request
std::optional<int> Endpoint::Serve(std::uint64_t key,
                                   std::uint32_t events,
                                   wz_message* request,
                                   wz_arena* arena,
                                   WzTvoOrigin& origin)
{
    if (key == BacklogKey)
    {
        TakeConnections();
        return std::nullopt;
    }
    const auto connection = Find(key);
    if (connection == nullptr)
    {
        return std::nullopt;
    }
    // Nobody is asked for a caller that has gone: what it sent is dropped unread.
    if ((events & HangUpEvents) != 0)
    {
        Remove(key);
        return std::nullopt;
    }
    int result = XoOk;
    switch (connection->Receive(request, arena, origin, result))
    {
        case Arrival::Packet:
            break;
        case Arrival::Nothing:
            return std::nullopt;
        case Arrival::Ended:
        case Arrival::Broken:
            Remove(key);
            return std::nullopt;
    }
    if (result != XoOk)
    {
        // Its caller would wait for ever.
        Remove(key);
    }
    return result;
}

int Endpoint::Answer(ServerConnection::Debt debt,
                     const WzTvoOrigin& origin,
                     const wz_message* response,
                     const wz_arena* arena)
{
    const auto connection = Find(origin.connection);
    if (connection == nullptr)
    {
        return XoObjectGone;
    }
    const int result = connection->Answer(debt, origin.sequence, response, arena);
    if (result == XoBroken || result == XoNoResources)
    {
        Remove(origin.connection);
    }
    return result == XoBroken ? XoObjectGone : result;
}

int Endpoint::Detach(const WzTvoOrigin& origin)
{
    const auto connection = Find(origin.connection);
    return connection != nullptr && connection->Detach(origin.sequence) ? XoOk : XoObjectGone;
}

int Endpoint::Describe(const WzTvoOrigin& origin, WzTvoPeer& peer)
{
    const auto connection = Find(origin.connection);
    if (connection == nullptr)
    {
        return XoObjectGone;
    }
    peer = connection->Describe();
    return XoOk;
}

std::shared_ptr<ServerConnection> Endpoint::Find(std::uint64_t id)
{
    const std::lock_guard lock(m_mutex);
    const std::size_t slot = id & SlotMask;
    if (slot >= m_slots.size() || m_slots[slot] == nullptr || m_slots[slot]->Id() != id)
    {
        return nullptr;
    }
    return m_slots[slot];
}

int Endpoint::Add(Descriptor& socket, const Peer& peer, std::uint64_t& id)
{
    const std::lock_guard lock(m_mutex);
    if (m_closed)
    {
        return XoObjectGone;
    }
    if (m_slots.size() - m_free.size() >= SweepFrom)
    {
        SweepLocked();
    }
    if (m_free.empty())
    {
        if (m_slots.size() == MaxConnections)
        {
            return XoNoResources;
        }
        m_free.push_back(static_cast<std::uint32_t>(m_slots.size()));
        m_slots.emplace_back();
    }
    const std::uint32_t slot = m_free.back();
    const std::uint64_t newId = NextConnectionNumber() << SlotBits | slot;
    if (!Watch(socket.Get(), newId, EPOLLIN | EPOLLRDHUP))
    {
        return XoNoResources;
    }
    m_free.pop_back();
    m_slots[slot] = std::make_shared<ServerConnection>(newId, std::move(socket), peer);
    id = newId;
    return XoOk;
}

int Endpoint::Welcome(std::uint64_t id, std::uint32_t riid)
{
    const auto connection = Find(id);
    if (connection == nullptr)
    {
        return XoObjectGone;
    }
    if (SendVerdict(connection->Socket(), XoOk, riid) != Departure::Sent)
    {
        Remove(id);
        return XoObjectGone;
    }
    return XoOk;
}

void Endpoint::Remove(std::uint64_t id)
{
    const std::lock_guard lock(m_mutex);
    RemoveLocked(id);
}

void Endpoint::RemoveLocked(std::uint64_t id)
{
    const std::size_t slot = id & SlotMask;
    if (slot >= m_slots.size() || m_slots[slot] == nullptr || m_slots[slot]->Id() != id)
    {
        return;
    }
    const auto connection = std::exchange(m_slots[slot], nullptr);
    m_free.push_back(static_cast<std::uint32_t>(slot));
    if (m_keepsEnded)
    {
        m_ended.push_back(id);
        m_hasEnded = true;
    }
    ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_DEL, connection->Socket(), nullptr);
    connection->End();
}

/// Makes room: a thread that is busy with one caller does not notice that others hang up.
void Endpoint::SweepLocked()
{
    std::vector<pollfd> states;
    std::vector<std::uint64_t> ids;
    for (const auto& connection : m_slots)
    {
        if (connection != nullptr)
        {
            states.push_back({connection->Socket(), POLLRDHUP, 0});
            ids.push_back(connection->Id());
        }
    }
    ::poll(states.data(), states.size(), 0);
    for (std::size_t i = 0; i < states.size(); ++i)
    {
        if ((states[i].revents & (POLLRDHUP | POLLHUP | POLLERR)) != 0)
        {
            RemoveLocked(ids[i]);
        }
    }
}

void Endpoint::TakeConnections()
{
    const std::lock_guard lock(m_backlogMutex);
    for (int i = 0; i < ConnectionsAtOnce && m_backlog; ++i)
    {
        Descriptor socket;
        Peer peer;
        std::uint64_t id = 0;
        switch (m_backlog->Take(socket, peer))
        {
            case Backlog::Outcome::Taken:
                if (Add(socket, peer, id) == XoNoResources)
                {
                    LogOffence(peer, "the endpoint is full");
                }
                break;
            case Backlog::Outcome::Empty:
                return;
            case Backlog::Outcome::Exhausted:
                Rest();
                return;
        }
    }
}

void Endpoint::Rest()
{
    epoll_event nothing{};
    nothing.data.u64 = BacklogKey;
    ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_MOD, m_backlog->Socket(), &nothing);
    m_restUntil = (Deadline::Clock::now() + RestTime).time_since_epoch().count();
}

/// @returns milliseconds until new connections are taken again, or -1 when they are
int Endpoint::RestLeft()
{
    const std::lock_guard lock(m_backlogMutex);
    const Deadline::Clock::time_point until{Deadline::Clock::duration(m_restUntil)};
    if (Deadline::Clock::now() < until)
    {
        return Deadline::MillisecondsUntil(until);
    }
    m_restUntil = 0;
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.u64 = BacklogKey;
    if (m_backlog)
    {
        ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_MOD, m_backlog->Socket(), &event);
    }
    return -1;
}

unsigned long Endpoint::TakeEnded(unsigned long count, std::uint64_t* ids)
{
    if (!m_hasEnded)
    {
        return 0;
    }
    const std::lock_guard lock(m_mutex);
    const auto taken = std::min(count, m_ended.size());
    const auto end = m_ended.begin() + static_cast<std::ptrdiff_t>(taken);
    std::copy(m_ended.begin(), end, ids);
    m_ended.erase(m_ended.begin(), end);
    m_hasEnded = !m_ended.empty();
    return taken;
}

void Endpoint::Joined()
{
    const std::lock_guard lock(m_mutex);
    m_keepsEnded = true;
}

int Endpoint::DueIn()
{
    if (m_hasEnded)
    {
        return 0;
    }
    const Deadline::Clock::duration restUntil(m_restUntil);
    return restUntil.count() != 0
               ? Deadline::MillisecondsUntil(Deadline::Clock::time_point(restUntil))
               : -1;
}

void Endpoint::Close()
{
    m_closed = true;
    ::eventfd_write(m_closeEvent.Get(), 1);
    {
        const std::lock_guard lock(m_mutex);
        for (const auto& connection : m_slots)
        {
            if (connection != nullptr)
            {
                RemoveLocked(connection->Id());
            }
        }
        m_name.reset();
    }
    const std::lock_guard lock(m_backlogMutex);
    m_backlog.reset();
}

}  // namespace platform
