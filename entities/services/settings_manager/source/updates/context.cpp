#include "context.h"

#include <utility>

#include <component/nvl/error.h>

namespace settings_manager::service {

void Context::Subscribe(SubscriptionId sid, const nvl::Path& path)
{
    if (m_subscriptions.size() == MostSubscriptions)
    {
        throw nvl::Error(plk::codes::InsufficientResources, "too many subscriptions");
    }
    m_subscriptions.emplace(sid, Subscription{path, TextOf(path)});
}

void Context::Unsubscribe(SubscriptionId sid)
{
    if (m_subscriptions.erase(sid) == 0)
    {
        throw nvl::Error(nvl::ItemMissing);
    }
    m_queue.Purge(sid);
}

void Context::Tell(const Change& change)
{
    for (const auto& [sid, subscription] : m_subscriptions)
    {
        if (const auto update = UpdateFor(subscription.path, change))
        {
            m_queue.Push({sid, TextOf(update->path), update->kinds}, subscription.text);
        }
    }
}

std::optional<ParkedWait> Context::Park(const ParkedWait& wait)
{
    return std::exchange(m_parked, wait);
}

std::optional<ParkedWait> Context::TakeAnswerable()
{
    return m_queue.IsEmpty() ? std::nullopt : std::exchange(m_parked, std::nullopt);
}

}  // namespace settings_manager::service
