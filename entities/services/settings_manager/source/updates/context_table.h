#pragma once

#include <cstdint>
#include <functional>
#include <unordered_map>

#include "context.h"

namespace settings_manager::service {

/// All clients that have registered for updates. A context's id is what its owner proves itself
/// with, so nobody can guess it; it ends with the connection that has registered it.
class ContextTable final
{
public:
    static constexpr std::size_t MostContexts = 256;

    /// @returns the context's id
    /// @throws nvl::Error `InsufficientResources` at too many contexts
    [[nodiscard]] std::uint64_t Add(std::uint64_t connection);

    /// A wait that is parked there stays without an answer.
    /// @throws nvl::Error `NotFound`
    void Remove(std::uint64_t cid);

    void RemoveOf(std::uint64_t connection);

    /// @throws nvl::Error `NotFound`
    [[nodiscard]] Context& At(std::uint64_t cid);

    /// @returns the id of the new subscription, unique in this process
    /// @throws nvl::Error `NotFound`, `InsufficientResources`
    [[nodiscard]] SubscriptionId Subscribe(std::uint64_t cid, const nvl::Path& path);

    /// Queues a change for all whom it concerns.
    void Tell(const Change& change);

    /// Visits the waits that can be answered by now.
    void TakeAnswerable(const std::function<void(Context&, const ParkedWait&)>& visit);

private:
    std::unordered_map<std::uint64_t, Context> m_contexts;
    SubscriptionId m_lastSid = 0;
    bool m_hasNews = false;
};

}  // namespace settings_manager::service
