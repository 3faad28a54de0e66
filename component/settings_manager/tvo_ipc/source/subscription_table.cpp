#include "subscription_table.h"

#include <utility>

namespace settings_manager::ipc {

SubscriptionTable::Pending::Pending(SubscriptionTable& table) : m_table(table)
{
    const std::lock_guard lock(m_table.m_mutex);
    ++m_table.m_pendingSubscribes;
}

SubscriptionTable::Pending::~Pending()
{
    GiveUp();
}

bool SubscriptionTable::Pending::Add(SubscriptionId sid, Observer& observer)
{
    bool isAdded = false;
    bool post = false;
    {
        const std::lock_guard lock(m_table.m_mutex);
        isAdded = m_table.m_observers.try_emplace(sid, std::move(observer)).second;
        m_isOpen = false;
        --m_table.m_pendingSubscribes;
        // The sid that is waited for may be this one, whatever else is pending.
        post = (isAdded || m_table.m_pendingSubscribes == 0) && m_table.Release();
    }
    if (post)
    {
        m_table.m_subscribed.Post();
    }
    return isAdded;
}

void SubscriptionTable::Pending::GiveUp()
{
    bool post = false;
    if (std::exchange(m_isOpen, false))
    {
        const std::lock_guard lock(m_table.m_mutex);
        post = --m_table.m_pendingSubscribes == 0 && m_table.Release();
    }
    if (post)
    {
        m_table.m_subscribed.Post();
    }
}

bool SubscriptionTable::Release()
{
    return std::exchange(m_waitingForSubscribe, false);
}

SubscriptionTable::Removal::~Removal()
{
    if (isRunning)
    {
        ended.Wait();
    }
}

bool SubscriptionTable::BeginRemoval(SubscriptionId sid, Removal& removal)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_observers.find(sid);
    if (found == m_observers.end())
    {
        return false;
    }
    m_unsubscribing.insert(sid);
    removal.observer = std::move(found->second);
    m_observers.erase(found);
    if (m_currentSid == sid)
    {
        removal.isRunning = true;
        m_currentSid = 0;
        m_syncHolder = &removal.ended;
    }
    return true;
}

void SubscriptionTable::EndRemoval(SubscriptionId sid)
{
    const std::lock_guard lock(m_mutex);
    m_unsubscribing.erase(sid);
}

SubscriptionTable::Finding SubscriptionTable::BeginDelivery(SubscriptionId sid, Observer& observer)
{
    const std::lock_guard lock(m_mutex);
    if (const auto found = m_observers.find(sid); found != m_observers.end())
    {
        observer = found->second;
        m_currentSid = sid;
        return Finding::Active;
    }
    if (m_unsubscribing.contains(sid))
    {
        return Finding::Leaving;
    }
    m_waitingForSubscribe = m_pendingSubscribes > 0;
    return m_waitingForSubscribe ? Finding::Expected : Finding::Unknown;
}

void SubscriptionTable::WaitForSubscribe()
{
    m_subscribed.Wait();
}

plk::Semaphore* SubscriptionTable::EndDelivery()
{
    const std::lock_guard lock(m_mutex);
    m_currentSid = 0;
    return std::exchange(m_syncHolder, nullptr);
}

bool SubscriptionTable::IsDelivering()
{
    const std::lock_guard lock(m_mutex);
    return m_currentSid != 0 || m_syncHolder != nullptr;
}

std::size_t SubscriptionTable::Count()
{
    const std::lock_guard lock(m_mutex);
    return m_observers.size();
}

}  // namespace settings_manager::ipc
