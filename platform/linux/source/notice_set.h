#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include <xo/notice.h>

#include "deadline.h"
#include "descriptor.h"
#include "event_object.h"
#include "waitable.h"

namespace platform {

/// What is behind an `SNotice`: an epoll set over the waiting ends of event objects. Any thread may
/// use it at any time.
class NoticeSet final : public Waitable, public std::enable_shared_from_this<NoticeSet>
{
public:
    /// @returns null when there are no descriptors left
    static std::shared_ptr<NoticeSet> Make();

    int Subscribe(std::uint32_t handle,
                  const std::shared_ptr<EventWaiter>& waiter,
                  std::uint32_t mask,
                  std::uint64_t id);
    int UnsubscribeObject(std::uint32_t handle);
    int UnsubscribeId(std::uint64_t id);

    int Wait(const Deadline& deadline,
             unsigned long count,
             EventDesc* events,
             unsigned long* received);

    /// Ends every wait, now and later.
    void Drop();

    /// The handle of a subscribed object was closed in this process: reports the end once.
    void EndSubscription(std::uint64_t key);

    /// Lets all objects go.
    void Clear();

    int WaitDescriptor() const override
    {
        return m_epoll.Get();
    }

private:
    struct Subscription
    {
        std::uint32_t handle;
        std::shared_ptr<EventWaiter> waiter;
        std::uint32_t mask;
        std::uint64_t id;
    };
    using Subscriptions = std::map<std::uint64_t, Subscription>;

    NoticeSet() = default;
    bool Watch(int descriptor, std::uint64_t key);
    Subscriptions::iterator Remove(Subscriptions::iterator row);
    template <typename Predicate>
    int RemoveIf(Predicate predicate);
    bool TakeEnded(EventDesc& event);
    bool TakeEvent(std::uint64_t key, EventDesc& event);

    Descriptor m_epoll;
    Descriptor m_dropEvent;   ///< set once, never read
    Descriptor m_endedEvent;  ///< readable while `m_ended` holds something
    std::atomic<bool> m_dropped = false;
    std::mutex m_mutex;
    Subscriptions m_subscriptions;
    std::uint64_t m_nextKey = 0;
    std::vector<EventDesc> m_ended;
};

}  // namespace platform
