#include <algorithm>

#include <xo/notice.h>

#include "run.h"

namespace platform::testing {
namespace {

std::uint32_t BitsOf(const SNotice::Subscription& subscription)
{
    const bool ended = subscription.event->ended || subscription.closedHere;
    return (subscription.event->bits | (ended ? XoEventClosed : 0)) & subscription.mask;
}

bool HasEvent(const SNotice& notice)
{
    return std::any_of(notice.subscriptions.begin(),
                       notice.subscriptions.end(),
                       [](const auto& subscription) { return BitsOf(subscription) != 0; });
}

/// Takes up to `count` events out of the notice; an object that has ended leaves the set.
unsigned long TakeEvents(SNotice& notice, unsigned long count, EventDesc* events)
{
    unsigned long taken = 0;
    std::erase_if(notice.subscriptions,
                  [&](SNotice::Subscription& subscription)
                  {
                      const std::uint32_t bits = BitsOf(subscription);
                      if (bits == 0 || taken == count)
                      {
                          return false;
                      }
                      events[taken++] = {subscription.id, bits, 0};
                      subscription.event->bits = 0;
                      return (bits & XoEventClosed) != 0;
                  });
    return taken;
}

bool IsSubscribed(const World& world, std::uint32_t handle)
{
    return std::any_of(world.notices.begin(),
                       world.notices.end(),
                       [&](const SNotice* notice)
                       {
                           return std::any_of(notice->subscriptions.begin(),
                                              notice->subscriptions.end(),
                                              [&](const auto& subscription)
                                              { return subscription.handle == handle; });
                       });
}

template <typename Predicate>
int Unsubscribe(SNotice* notice, Predicate predicate)
{
    return std::erase_if(notice->subscriptions, predicate) > 0 ? XoOk : XoObjectGone;
}

}  // namespace
}  // namespace platform::testing

using namespace platform::testing;

int XoEventCreate(std::uint32_t* setter, std::uint32_t* waiter)
{
    const auto body = [=](World& world, Lock&)
    {
        const auto event = std::make_shared<DoubleEvent>();
        *setter = world.Add(EventEnd{event, true});
        *waiter = world.Add(EventEnd{event, false});
        return XoOk;
    };
    return Run(Call::EventCreate, body);
}

int XoNoticeCreate(SNotice** notice)
{
    const auto body = [=](World& world, Lock&)
    {
        *notice = new SNotice;
        world.notices.insert(*notice);
        return XoOk;
    };
    return Run(Call::NoticeCreate, body);
}

int XoNoticeSubscribeToObject(SNotice* notice,
                              std::uint32_t handle,
                              std::uint32_t mask,
                              unsigned long id)
{
    const auto body = [=](World& world, Lock&)
    {
        const auto* end = world.Find<EventEnd>(handle);
        if (end == nullptr)
        {
            return XoObjectGone;
        }
        if (end->setter || IsSubscribed(world, handle))
        {
            return XoInvalidArgument;
        }
        notice->subscriptions.push_back({handle, end->event, mask, id});
        world.changed.notify_all();
        return XoOk;
    };
    return Run(Call::NoticeSubscribeToObject, body, handle, mask, id);
}

int XoNoticeGetEvent(SNotice* notice,
                     unsigned long timeoutMs,
                     unsigned long count,
                     EventDesc* events,
                     unsigned long* received)
{
    const auto body = [=](World& world, Lock& lock)
    {
        const auto limit = static_cast<std::uint32_t>(
            std::min<unsigned long>(timeoutMs, static_cast<unsigned long>(WzInfinite)));
        const Wake wake = world.Wait(lock,
                                     Call::NoticeGetEvent,
                                     limit,
                                     [&] { return notice->dropped || HasEvent(*notice); });
        if (wake == Wake::Abandoned || (wake == Wake::Ready && notice->dropped))
        {
            return XoObjectGone;
        }
        if (wake == Wake::Expired)
        {
            return XoTimedOut;
        }
        *received = TakeEvents(*notice, count, events);
        return XoOk;
    };
    return Run(Call::NoticeGetEvent, body);
}

int XoNoticeUnsubscribeFromObject(SNotice* notice, std::uint32_t handle)
{
    const auto body = [=](World&, Lock&)
    {
        return Unsubscribe(notice, [&](const auto& row) { return row.handle == handle; });
    };
    return Run(Call::NoticeUnsubscribeFromObject, body, handle);
}

int XoNoticeUnsubscribeFromEvent(SNotice* notice, unsigned long id)
{
    const auto body = [=](World&, Lock&)
    {
        return Unsubscribe(notice, [&](const auto& row) { return row.id == id; });
    };
    return Run(Call::NoticeUnsubscribeFromEvent, body, id);
}

int XoNoticeDropAndWake(SNotice* notice)
{
    const auto body = [=](World& world, Lock&)
    {
        notice->dropped = true;
        world.changed.notify_all();
        return XoOk;
    };
    return Run(Call::NoticeDropAndWake, body);
}

int XoNoticeRelease(SNotice* notice)
{
    const auto body = [=](World& world, Lock&)
    {
        world.notices.erase(notice);
        delete notice;
        return XoOk;
    };
    return Run(Call::NoticeRelease, body);
}

int XoNoticeSetObjectEvent(std::uint32_t handle, std::uint32_t mask)
{
    const auto body = [=](World& world, Lock&)
    {
        const auto* end = world.Find<EventEnd>(handle);
        if (end == nullptr)
        {
            return XoObjectGone;
        }
        if (!end->setter || mask == 0 || (mask & XoEventClosed) != 0)
        {
            return XoInvalidArgument;
        }
        end->event->bits |= mask;
        world.changed.notify_all();
        return XoOk;
    };
    return Run(Call::NoticeSetObjectEvent, body, handle, mask);
}
