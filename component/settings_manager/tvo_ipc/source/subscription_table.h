#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <set>

#include <component/plk/semaphore.h>
#include <component/settings_manager/i_settings_manager.h>

namespace settings_manager::ipc {

/// Who observes what, and how the subscribers' threads and the callback thread meet. An update may
/// come before its subscription has been entered, while it is being ended, and while its observer
/// runs. Neither calls of the service nor observers run under the lock.
class SubscriptionTable final
{
public:
    using Observer = std::shared_ptr<ISettingsUpdateObserver>;

    /// Says that a subscription may come to be known at the service before it is known here. To be
    /// followed by `Add` or `GiveUp`, otherwise it gives up at its end.
    class Pending final
    {
    public:
        explicit Pending(SubscriptionTable& table);
        ~Pending();

        Pending(const Pending&) = delete;
        Pending& operator=(const Pending&) = delete;

        /// @returns false, with the observer left to the caller, for a sid that is there already
        [[nodiscard]] bool Add(SubscriptionId sid, Observer& observer);
        void GiveUp();

    private:
        SubscriptionTable& m_table;
        bool m_isOpen = true;
    };

    /// A subscription on its way out. At its end it waits for a running observer and then lets go
    /// of it, so observers end on the subscribers' threads.
    struct Removal
    {
        Removal() = default;
        ~Removal();

        Removal(const Removal&) = delete;
        Removal& operator=(const Removal&) = delete;

        Observer observer;
        bool isRunning = false;
        plk::Semaphore ended;
    };

    /// What is known of the sid of an update.
    enum class Finding
    {
        Active,
        Leaving,   ///< its end is under way
        Expected,  ///< unknown, and a subscription is pending
        Unknown,
    };

    /// Takes a subscription out. While it is leaving, its updates count as such.
    /// @returns false when it is not there
    [[nodiscard]] bool BeginRemoval(SubscriptionId sid, Removal& removal);
    void EndRemoval(SubscriptionId sid);

    /// For the callback thread alone. Each delivery that has found an active subscription is ended.
    [[nodiscard]] Finding BeginDelivery(SubscriptionId sid, Observer& observer);

    /// Waits until a pending subscription has come to its end.
    void WaitForSubscribe();

    /// @returns what a removal waits on, to be posted; null when there is none
    [[nodiscard]] plk::Semaphore* EndDelivery();

    [[nodiscard]] bool IsDelivering();
    [[nodiscard]] std::size_t Count();

private:
    /// With the lock held; @returns whether to post `m_subscribed`
    [[nodiscard]] bool Release();

    std::mutex m_mutex;
    std::map<SubscriptionId, Observer> m_observers;
    int m_pendingSubscribes = 0;
    plk::Semaphore m_subscribed;
    bool m_waitingForSubscribe = false;  ///< the callback thread does, on `m_subscribed`
    SubscriptionId m_currentSid = 0;     ///< whose observer is running
    plk::Semaphore* m_syncHolder = nullptr;
    std::set<SubscriptionId> m_unsubscribing;
};

}  // namespace settings_manager::ipc
