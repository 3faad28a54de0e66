#include "event_queue.h"

#include <iterator>
#include <utility>

namespace settings_manager::service {

void EventQueue::Push(Event event, const std::string& subscribed)
{
    if (m_events.size() < Bound)
    {
        m_events.push_back(std::move(event));
    }
    else if (const auto folded = m_folded.find(event.sid); folded != m_folded.end())
    {
        folded->second->kinds |= event.kinds;
    }
    else
    {
        Fold(event, subscribed);
    }
}

void EventQueue::Purge(SubscriptionId sid)
{
    m_folded.erase(sid);
    if (m_isHeadOut && m_events.front().sid == sid)
    {
        m_purged = sid;
        PopHead();
    }
    m_events.remove_if([sid](const Event& event) { return event.sid == sid; });
}

const Event& EventQueue::Deliver(std::uint64_t connection, std::uint64_t sequence)
{
    const auto folded = m_folded.find(m_events.front().sid);
    if (folded != m_folded.end() && folded->second == m_events.begin())
    {
        m_folded.erase(folded);  // what comes now comes after it
    }
    m_isHeadOut = true;
    m_delivery = Delivery{connection, sequence};
    return m_events.front();
}

std::optional<Event> EventQueue::Confirm(std::uint64_t connection, std::uint64_t acknowledged)
{
    const auto delivery = std::exchange(m_delivery, std::nullopt);
    if (delivery && delivery->connection == connection && delivery->sequence <= acknowledged)
    {
        ++m_confirmed;
    }
    return m_confirmed == MostDeliveries ? std::optional(PopHead()) : std::nullopt;
}

bool EventQueue::Done(SubscriptionId sid)
{
    if (m_isHeadOut && m_events.front().sid == sid)
    {
        PopHead();
        return true;
    }
    return std::exchange(m_purged, 0) == sid && sid != 0;
}

void EventQueue::Fold(const Event& event, const std::string& subscribed)
{
    unsigned char kinds = event.kinds;
    auto folded = m_events.end();
    for (auto other = FirstToFold(); other != m_events.end();)
    {
        if (other->sid != event.sid)
        {
            ++other;
            continue;
        }
        kinds |= other->kinds;
        if (folded == m_events.end())
        {
            folded = other++;
        }
        else
        {
            other = m_events.erase(other);
        }
    }
    folded = folded != m_events.end() ? folded : m_events.emplace(folded);
    *folded = {event.sid, subscribed, kinds};
    m_folded.emplace(event.sid, folded);
}

/// What is out must stay what it was.
EventQueue::Events::iterator EventQueue::FirstToFold()
{
    return m_isHeadOut ? std::next(m_events.begin()) : m_events.begin();
}

Event EventQueue::PopHead()
{
    Event head = std::move(m_events.front());
    m_events.pop_front();
    m_isHeadOut = false;
    m_delivery.reset();
    m_confirmed = 0;
    return head;
}

}  // namespace settings_manager::service
