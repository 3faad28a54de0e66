#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include <shared/common/tvo/service/service_call.h>

#include "event_queue.h"
#include "store/change.h"

namespace settings_manager::service {

/// A client's question for the next event that has not been answered yet.
struct ParkedWait
{
    tvo::service::Ticket ticket;
    std::uint16_t riid;
    std::uint64_t connection;
    std::uint64_t sequence;
};

/// One client that has registered for updates: its subscriptions and what it has to be told.
class Context final
{
public:
    static constexpr std::size_t MostSubscriptions = 4096;

    /// @param connection  the one that has registered
    explicit Context(std::uint64_t connection) noexcept : m_connection(connection) {}

    [[nodiscard]] std::uint64_t Connection() const noexcept
    {
        return m_connection;
    }

    /// @throws nvl::Error `InsufficientResources` at too many subscriptions
    void Subscribe(SubscriptionId sid, const nvl::Path& path);

    /// Takes the subscription away with all that it has not been told yet.
    /// @throws nvl::Error `NotFound`
    void Unsubscribe(SubscriptionId sid);

    /// Queues what the subscriptions have to be told of a change: one event each at most.
    void Tell(const Change& change);

    [[nodiscard]] EventQueue& Queue() noexcept
    {
        return m_queue;
    }

    /// @returns the wait that was parked before
    std::optional<ParkedWait> Park(const ParkedWait& wait);

    /// @returns the parked wait, when there is something to answer it with
    std::optional<ParkedWait> TakeAnswerable();

private:
    struct Subscription
    {
        nvl::Path path;
        std::string text;
    };

    std::uint64_t m_connection;
    std::map<SubscriptionId, Subscription> m_subscriptions;
    EventQueue m_queue;
    std::optional<ParkedWait> m_parked;
};

}  // namespace settings_manager::service
