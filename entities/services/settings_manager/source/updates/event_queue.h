#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <unordered_map>

#include <component/settings_manager/i_settings_manager.h>

namespace settings_manager::service {

/// What a subscription has to be told.
struct Event
{
    SubscriptionId sid;
    std::string path;  ///< the text of one at or below the subscribed path
    unsigned char kinds;
};

/// What one client has to be told, in order. The event at the head stays there until the client is
/// done with it. It is handed out again to who asks again, since an answer may have been lost; an
/// event that has certainly arrived three times is given up.
class EventQueue final
{
public:
    /// From here on the events of a subscription are folded into one on the subscribed path, so the
    /// queue never gets longer than this by more than one event a subscription.
    static constexpr std::size_t Bound = 4096;

    static constexpr int MostDeliveries = 3;

    /// @param subscribed  the text of the path of the event's subscription
    void Push(Event event, const std::string& subscribed);

    /// Forgets all events of a subscription.
    void Purge(SubscriptionId sid);

    [[nodiscard]] bool IsEmpty() const noexcept
    {
        return m_events.empty();
    }

    [[nodiscard]] std::size_t Size() const noexcept
    {
        return m_events.size();
    }

    /// Hands out the head as the answer to a call of a connection.
    const Event& Deliver(std::uint64_t connection, std::uint64_t sequence);

    /// Learns from a new request of a connection up to which call answers have arrived there.
    /// @returns the head, if that was its last chance
    std::optional<Event> Confirm(std::uint64_t connection, std::uint64_t acknowledged);

    /// The client is done with the event that it has of this subscription.
    /// @returns false when it has none
    bool Done(SubscriptionId sid);

private:
    using Events = std::list<Event>;

    struct Delivery
    {
        std::uint64_t connection;
        std::uint64_t sequence;
    };

    void Fold(const Event& event, const std::string& subscribed);
    [[nodiscard]] Events::iterator FirstToFold();
    Event PopHead();

    Events m_events;
    std::unordered_map<SubscriptionId, Events::iterator> m_folded;  ///< those not handed out yet
    bool m_isHeadOut = false;
    std::optional<Delivery> m_delivery;  ///< of the head, not known to have arrived
    int m_confirmed = 0;                 ///< how often the head has arrived
    SubscriptionId m_purged = 0;         ///< whose event was out when it was forgotten
};

}  // namespace settings_manager::service
