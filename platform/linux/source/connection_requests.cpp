#include "connection_requests.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <memory>
#include <tuple>
#include <utility>

#include <sys/epoll.h>

#include "log.h"

namespace platform {
namespace {

using std::chrono::milliseconds;

constexpr std::uint64_t BacklogKey = 0;
constexpr std::size_t EventsAtOnce = MaxPendingRequests + 1;
constexpr auto SilenceLimit = milliseconds(5000);
constexpr auto RestTime = milliseconds(100);

/// When there is no room, a client that is silent for so long already makes way.
constexpr auto SilenceLimitWhenFull = milliseconds(200);

std::atomic<ConnectionRequests*> g_instance = nullptr;

}  // namespace

ConnectionRequests* ConnectionRequests::Instance()
{
    return g_instance;
}

bool ConnectionRequests::Start(Descriptor listeningSocket)
{
    std::unique_ptr<ConnectionRequests> made(new ConnectionRequests(std::move(listeningSocket)));
    if (!made->Watch(made->m_backlog.Socket(), BacklogKey))
    {
        return false;
    }
    // Never destroyed: a thread may still listen while the process exits.
    g_instance = made.release();
    return true;
}

ConnectionRequests::ConnectionRequests(Descriptor listeningSocket)
    : m_epoll(::epoll_create1(EPOLL_CLOEXEC)), m_backlog(std::move(listeningSocket))
{}

bool ConnectionRequests::Watch(int descriptor, std::uint64_t number)
{
    epoll_event event{};
    event.events = EPOLLIN | EPOLLRDHUP;
    event.data.u64 = number;
    return ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_ADD, descriptor, &event) == 0;
}

void ConnectionRequests::AddService(std::string service)
{
    const std::lock_guard lock(m_mutex);
    m_services.insert(std::move(service));
}

int ConnectionRequests::Listen(const Deadline& deadline, ConnectRequest& request)
{
    std::unique_lock lock(m_mutex);
    const int result = ListenLocked(lock, deadline, request);
    m_nextLook = NextLook();
    return result;
}

int ConnectionRequests::ListenLocked(std::unique_lock<std::mutex>& lock,
                                     const Deadline& deadline,
                                     ConnectRequest& request)
{
    for (;;)
    {
        // New ones first, so that one that is reported again and again hides nobody. The second
        // round reads what those say that were taken from the backlog in the first.
        if (!Collect(lock, 0) || !Collect(lock, 0))
        {
            return XoBroken;
        }
        CloseSilent();
        if (MakeRoom() && !Collect(lock, 0))
        {
            return XoBroken;
        }
        if (const auto row = ChooseNext(); row != m_requests.end())
        {
            row->second.reported = m_nextReport++;
            request = row->second.names;
            return XoOk;
        }
        if (deadline.HasPassed())
        {
            return XoTimedOut;
        }
        if (!Collect(lock, WaitTime(deadline)))
        {
            return XoBroken;
        }
    }
}

/// Waits for something to happen and does what it asks for. The lock is free meanwhile.
bool ConnectionRequests::Collect(std::unique_lock<std::mutex>& lock, int timeout)
{
    std::array<epoll_event, EventsAtOnce> events;
    lock.unlock();
    const int found = ::epoll_wait(m_epoll.Get(), events.data(), EventsAtOnce, timeout);
    const bool failed = found < 0 && errno != EINTR;
    lock.lock();
    for (int i = 0; i < found; ++i)
    {
        const epoll_event& event = events[static_cast<std::size_t>(i)];
        if (event.data.u64 == BacklogKey)
        {
            TakeFromBacklog();
            continue;
        }
        const auto row = m_requests.find(event.data.u64);
        if (row == m_requests.end())
        {
            continue;
        }
        if ((event.events & (EPOLLHUP | EPOLLRDHUP | EPOLLERR)) != 0)
        {
            Remove(row);
        }
        else
        {
            ReadRequest(row);
        }
    }
    Arm();
    return !failed;
}

void ConnectionRequests::TakeFromBacklog()
{
    while (m_requests.size() < MaxPendingRequests)
    {
        Request request;
        switch (m_backlog.Take(request.socket, request.peer))
        {
            case Backlog::Outcome::Taken:
                break;
            case Backlog::Outcome::Empty:
                return;
            case Backlog::Outcome::Exhausted:
                m_restUntil = Deadline::Clock::now() + RestTime;
                return;
        }
        request.since = Deadline::Clock::now();
        const std::uint64_t number = m_nextNumber++;
        if (Watch(request.socket.Get(), number))
        {
            m_requests.emplace(number, std::move(request));
        }
    }
}

void ConnectionRequests::ReadRequest(Requests::iterator row)
{
    Request& request = row->second;
    ReceivedPacket packet;
    const Arrival arrival = ReceivePacket(request.socket.Get(), Waiting::No, packet);
    const char* fault = packet.fault;
    if (arrival == Arrival::Packet && request.asked)
    {
        fault = "it spoke again before the verdict";
    }
    else if (arrival == Arrival::Packet)
    {
        auto names = ParseConnect(packet.bytes, packet.size, packet.descriptors.Count(), fault);
        if (names)
        {
            request.asked = true;
            request.names = std::move(*names);
            request.names.client +=
                "@" + std::to_string(request.peer.pid) + "." + std::to_string(row->first);
        }
    }
    if (fault != nullptr)
    {
        LogOffence(request.peer, fault);
    }
    if (fault != nullptr || arrival == Arrival::Ended)
    {
        Remove(row);
    }
}

ConnectionRequests::Requests::iterator ConnectionRequests::Remove(Requests::iterator row)
{
    ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_DEL, row->second.socket.Get(), nullptr);
    return m_requests.erase(row);
}

void ConnectionRequests::CloseSilent()
{
    const auto now = Deadline::Clock::now();
    for (auto row = m_requests.begin(); row != m_requests.end();)
    {
        if (!row->second.asked && now - row->second.since >= SilenceLimit)
        {
            LogOffence(row->second.peer, "it does not say what it wants");
            row = Remove(row);
        }
        else
        {
            ++row;
        }
    }
}

/// With all places taken and somebody at the door, those go that hold a place for nothing: silent
/// clients, then clients that ask for what is not published here.
/// @returns whether somebody came in
bool ConnectionRequests::MakeRoom()
{
    bool made = false;
    for (std::size_t i = 0; i < MaxPendingRequests; ++i)
    {
        if (m_requests.size() < MaxPendingRequests || !m_backlog.HasWaiting())
        {
            break;
        }
        const auto victim = ChooseVictim();
        if (victim == m_requests.end())
        {
            break;
        }
        if (victim->second.asked)
        {
            SendVerdict(victim->second.socket.Get(), XoNoResources, InvalidRiid);
        }
        else
        {
            LogOffence(victim->second.peer, "it does not say what it wants while others wait");
        }
        Remove(victim);
        TakeFromBacklog();
        made = true;
    }
    return made;
}

ConnectionRequests::Requests::iterator ConnectionRequests::ChooseVictim()
{
    const auto silentSince = Deadline::Clock::now() - SilenceLimitWhenFull;
    const auto silent = std::find_if(
        m_requests.begin(),
        m_requests.end(),
        [&](const auto& row) { return !row.second.asked && row.second.since <= silentSince; });
    return silent != m_requests.end()
               ? silent
               : std::find_if(m_requests.begin(),
                              m_requests.end(),
                              [&](const auto& row)
                              { return row.second.asked && !IsPublished(row.second); });
}

bool ConnectionRequests::IsPublished(const Request& request) const
{
    return m_services.contains(request.names.service);
}

ConnectionRequests::Requests::iterator ConnectionRequests::ChooseNext()
{
    const auto rank = [&](const auto& row)
    {
        const Request& request = row.second;
        const int band = request.reported != 0 ? 2 : IsPublished(request) ? 0 : 1;
        return std::tuple(!request.asked, band, request.reported, row.first);
    };
    const auto next = std::min_element(m_requests.begin(),
                                       m_requests.end(),
                                       [&](const auto& left, const auto& right)
                                       { return rank(left) < rank(right); });
    return next != m_requests.end() && next->second.asked ? next : m_requests.end();
}

/// Looks at the backlog only while there is room and no rest, so that it does not wake for nothing.
void ConnectionRequests::Arm()
{
    const bool wanted =
        m_requests.size() < MaxPendingRequests && Deadline::Clock::now() >= m_restUntil;
    if (wanted == m_armed)
    {
        return;
    }
    epoll_event event{};
    event.events = wanted ? EPOLLIN : 0U;
    event.data.u64 = BacklogKey;
    ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_MOD, m_backlog.Socket(), &event);
    m_armed = wanted;
}

/// When there is something to do that no socket tells.
Deadline::Clock::time_point ConnectionRequests::NextLook() const
{
    auto until = Deadline::Clock::time_point::max();
    const bool full = m_requests.size() >= MaxPendingRequests;
    for (const auto& [number, request] : m_requests)
    {
        if (!request.asked)
        {
            const auto limit = full ? SilenceLimitWhenFull : SilenceLimit;
            until = std::min(
                until, std::max(request.since + limit, Deadline::Clock::now() + milliseconds(10)));
        }
    }
    if (!m_armed && !full)
    {
        until = std::min(until, m_restUntil);
    }
    return until;
}

int ConnectionRequests::WaitTime(const Deadline& deadline) const
{
    const auto until = std::min(deadline.When(), NextLook());
    return until == Deadline::Clock::time_point::max() ? -1 : Deadline::MillisecondsUntil(until);
}

int ConnectionRequests::DueIn()
{
    const std::lock_guard lock(m_mutex);
    const auto next = ChooseNext();
    if (next != m_requests.end() && next->second.reported == 0)
    {
        return 0;
    }
    return m_nextLook == Deadline::Clock::time_point::max()
               ? -1
               : Deadline::MillisecondsUntil(m_nextLook);
}

std::optional<ConnectionRequests::Taken> ConnectionRequests::Take(const char* client,
                                                                  const char* service)
{
    const std::lock_guard lock(m_mutex);
    const auto row = std::find_if(m_requests.begin(),
                                  m_requests.end(),
                                  [&](const auto& candidate)
                                  {
                                      const Request& request = candidate.second;
                                      return request.reported != 0 &&
                                             request.names.client == client &&
                                             request.names.service == service;
                                  });
    if (row == m_requests.end())
    {
        return std::nullopt;
    }
    Taken taken{row->first, std::move(row->second.socket), row->second.peer};
    ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_DEL, taken.socket.Get(), nullptr);
    m_requests.erase(row);
    Arm();
    return taken;
}

void ConnectionRequests::PutBack(Taken taken, const char* client, const char* service)
{
    const std::lock_guard lock(m_mutex);
    if (!Watch(taken.socket.Get(), taken.number))
    {
        return;
    }
    Request request;
    request.socket = std::move(taken.socket);
    request.peer = taken.peer;
    request.since = Deadline::Clock::now();
    request.asked = true;
    request.reported = m_nextReport++;
    request.names = {service, client};
    m_requests.emplace(taken.number, std::move(request));
}

}  // namespace platform
