#include "notice_set.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <sys/epoll.h>
#include <sys/eventfd.h>

namespace platform {
namespace {

constexpr std::uint64_t DropKey = 0;
constexpr std::uint64_t EndedKey = 1;
constexpr std::uint64_t FirstSubscriptionKey = 2;
constexpr unsigned long EventsAtOnce = 16;

void Raise(const Descriptor& event)
{
    ::eventfd_write(event.Get(), 1);
}

}  // namespace

std::shared_ptr<NoticeSet> NoticeSet::Make()
{
    const std::shared_ptr<NoticeSet> set(new NoticeSet);
    set->m_epoll.Reset(::epoll_create1(EPOLL_CLOEXEC));
    set->m_dropEvent.Reset(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    set->m_endedEvent.Reset(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    set->m_nextKey = FirstSubscriptionKey;
    const bool whole = set->m_epoll && set->m_dropEvent && set->m_endedEvent &&
                       set->Watch(set->m_dropEvent.Get(), DropKey) &&
                       set->Watch(set->m_endedEvent.Get(), EndedKey);
    return whole ? set : nullptr;
}

bool NoticeSet::Watch(int descriptor, std::uint64_t key)
{
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.u64 = key;
    return ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_ADD, descriptor, &event) == 0;
}

int NoticeSet::Subscribe(std::uint32_t handle,
                         const std::shared_ptr<EventWaiter>& waiter,
                         std::uint32_t mask,
                         std::uint64_t id)
{
    const std::lock_guard lock(m_mutex);
    const std::uint64_t key = m_nextKey++;
    if (!waiter->Bind(weak_from_this(), key))
    {
        return XoInvalidArgument;
    }
    if (!Watch(waiter->Socket(), key))
    {
        waiter->Unbind(key);
        return XoNoResources;
    }
    m_subscriptions.emplace(key, Subscription{handle, waiter, mask, id});
    return XoOk;
}

NoticeSet::Subscriptions::iterator NoticeSet::Remove(Subscriptions::iterator row)
{
    ::epoll_ctl(m_epoll.Get(), EPOLL_CTL_DEL, row->second.waiter->Socket(), nullptr);
    row->second.waiter->Unbind(row->first);
    return m_subscriptions.erase(row);
}

template <typename Predicate>
int NoticeSet::RemoveIf(Predicate predicate)
{
    const std::lock_guard lock(m_mutex);
    int result = XoObjectGone;
    for (auto row = m_subscriptions.begin(); row != m_subscriptions.end();)
    {
        if (predicate(row->second))
        {
            row = Remove(row);
            result = XoOk;
        }
        else
        {
            ++row;
        }
    }
    return result;
}

int NoticeSet::UnsubscribeObject(std::uint32_t handle)
{
    return RemoveIf([&](const Subscription& row) { return row.handle == handle; });
}

int NoticeSet::UnsubscribeId(std::uint64_t id)
{
    return RemoveIf([&](const Subscription& row) { return row.id == id; });
}

int NoticeSet::Wait(const Deadline& deadline,
                    unsigned long count,
                    EventDesc* events,
                    unsigned long* received)
{
    std::array<epoll_event, EventsAtOnce> ready;
    const int atOnce = static_cast<int>(std::clamp(count, 1UL, EventsAtOnce));
    for (;;)
    {
        const int found = ::epoll_wait(m_epoll.Get(), ready.data(), atOnce, deadline.Left());
        if (m_dropped)
        {
            return XoObjectGone;
        }
        if (found == 0)
        {
            return XoTimedOut;
        }
        if (found < 0 && errno != EINTR)
        {
            return XoBroken;
        }
        const std::lock_guard lock(m_mutex);
        unsigned long taken = 0;
        while (taken < count && TakeEnded(events[taken]))
        {
            ++taken;
        }
        for (int i = 0; i < found && taken < count; ++i)
        {
            taken += TakeEvent(ready[static_cast<std::size_t>(i)].data.u64, events[taken]) ? 1 : 0;
        }
        if (taken > 0 || (count == 0 && found > 0))
        {
            *received = taken;
            return XoOk;
        }
        if (deadline.HasPassed())
        {
            return XoTimedOut;
        }
    }
}

bool NoticeSet::TakeEnded(EventDesc& event)
{
    if (m_ended.empty())
    {
        return false;
    }
    event = m_ended.front();
    m_ended.erase(m_ended.begin());
    if (m_ended.empty())
    {
        eventfd_t ignored = 0;
        ::eventfd_read(m_endedEvent.Get(), &ignored);
    }
    return true;
}

bool NoticeSet::TakeEvent(std::uint64_t key, EventDesc& event)
{
    const auto row = m_subscriptions.find(key);
    if (row == m_subscriptions.end())
    {
        return false;
    }
    const EventWaiter::Reading reading = row->second.waiter->ReadAll();
    const std::uint32_t bits = reading.bits | (reading.ended ? XoEventClosed : 0);
    event = {row->second.id, bits & row->second.mask, 0};
    if (reading.ended)
    {
        Remove(row);
    }
    return event.events != 0;
}

void NoticeSet::Drop()
{
    m_dropped = true;
    Raise(m_dropEvent);
}

void NoticeSet::EndSubscription(std::uint64_t key)
{
    const std::lock_guard lock(m_mutex);
    const auto row = m_subscriptions.find(key);
    if (row == m_subscriptions.end())
    {
        return;
    }
    const Subscription& subscription = row->second;
    const std::uint32_t bits =
        (subscription.waiter->ReadAll().bits | XoEventClosed) & subscription.mask;
    if (bits != 0)
    {
        m_ended.push_back({subscription.id, bits, 0});
        Raise(m_endedEvent);
    }
    Remove(row);
}

void NoticeSet::Clear()
{
    RemoveIf([](const Subscription&) { return true; });
}

}  // namespace platform
