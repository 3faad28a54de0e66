#include "wait_set.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include <sys/epoll.h>
#include <sys/eventfd.h>

#include <xo/result.h>

namespace platform {
namespace {

constexpr unsigned long EventsAtOnce = 64;

/// The shorter one of two times in milliseconds, of which -1 is the longest.
int Shorter(int left, int right)
{
    return static_cast<int>(std::min(static_cast<unsigned>(left), static_cast<unsigned>(right)));
}

}  // namespace

std::unique_ptr<WaitSet> WaitSet::Make()
{
    std::unique_ptr<WaitSet> set(new WaitSet);
    set->m_epoll.Reset(::epoll_create1(EPOLL_CLOEXEC));
    set->m_wakeEvent.Reset(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    const bool whole =
        set->m_epoll && set->m_wakeEvent && set->Watch(set->m_wakeEvent.Get(), nullptr);
    return whole ? std::move(set) : nullptr;
}

/// @param member  null for the event that wakes
bool WaitSet::Watch(int descriptor, Member* member)
{
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.ptr = member;
    return ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_ADD, descriptor, &event) == 0;
}

int WaitSet::Add(std::shared_ptr<Waitable> waitable, std::uint64_t key)
{
    const auto [row, isNew] = m_members.try_emplace(key, Member{std::move(waitable), key});
    if (!isNew)
    {
        return XoInvalidArgument;
    }
    Waitable& added = *row->second.waitable;
    if (!Watch(added.WaitDescriptor(), &row->second))
    {
        const int result = errno == EEXIST ? XoInvalidArgument : XoNoResources;
        m_members.erase(row);
        return result;
    }
    added.Joined();
    return XoOk;
}

int WaitSet::Remove(std::uint64_t key)
{
    const auto row = m_members.find(key);
    if (row == m_members.end())
    {
        return XoInvalidArgument;
    }
    const int descriptor = row->second.waitable->WaitDescriptor();
    ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_DEL, descriptor, nullptr);
    m_members.erase(row);
    return XoOk;
}

int WaitSet::Wait(const Deadline& deadline, std::span<std::uint64_t> keys, unsigned long& received)
{
    received = 0;
    const Report report{keys, received};
    std::array<epoll_event, EventsAtOnce> events;
    for (;;)
    {
        ++m_wait;
        const int due = TellDue(report);
        const int limit = received > 0 ? 0 : Shorter(deadline.Left(), due);
        const int found = ::epoll_wait(m_epoll.Get(), events.data(), EventsAtOnce, limit);
        if (found < 0 && errno != EINTR)
        {
            return XoBroken;
        }
        bool woken = false;
        for (int i = 0; i < found; ++i)
        {
            auto* const member = static_cast<Member*>(events[static_cast<std::size_t>(i)].data.ptr);
            if (member == nullptr)
            {
                woken = TakeWakeUp();
            }
            else
            {
                Tell(*member, report);
            }
        }
        if (received > 0 || woken)
        {
            return XoOk;
        }
        if (deadline.HasPassed())
        {
            return XoTimedOut;
        }
    }
}

void WaitSet::Tell(Member& member, const Report& report) const
{
    if (member.reportedIn != m_wait && report.received < report.keys.size())
    {
        member.reportedIn = m_wait;
        report.keys[report.received++] = member.key;
        member.waitable->Reported();
    }
}

/// Reports what is due by the clock.
/// @returns milliseconds until something more is, or -1
int WaitSet::TellDue(const Report& report)
{
    int next = -1;
    for (auto& [key, member] : m_members)
    {
        const int due = member.waitable->DueIn();
        if (due == 0)
        {
            Tell(member, report);
        }
        else
        {
            next = Shorter(next, due);
        }
    }
    return next;
}

bool WaitSet::TakeWakeUp()
{
    eventfd_t ignored = 0;
    return ::eventfd_read(m_wakeEvent.Get(), &ignored) == 0;
}

void WaitSet::Wake()
{
    ::eventfd_write(m_wakeEvent.Get(), 1);
}

}  // namespace platform
