#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include <wz/transport.h>

#include "bound_name.h"
#include "deadline.h"
#include "descriptor.h"
#include "object.h"
#include "peer.h"
#include "server_connection.h"
#include "waitable.h"

namespace platform {

inline constexpr std::size_t MaxConnections = 1024;

/// A place where requests are received: an epoll set over its connections and, for a static
/// connection name, over the socket that takes new ones. One event a wait gives order of arrival
/// and fairness. Any thread may use it at any time.
class Endpoint final : public Object, public Waitable
{
public:
    static constexpr ObjectKind HandleKind = ObjectKind::Endpoint;

    /// @returns null when there are no descriptors left
    static std::shared_ptr<Endpoint> Make(std::optional<BoundName> name);

    int Receive(const Deadline& deadline,
                wz_message* request,
                wz_arena* arena,
                WzTvoOrigin& origin);
    int Answer(ServerConnection::Debt debt,
               const WzTvoOrigin& origin,
               const wz_message* response,
               const wz_arena* arena);
    int Detach(const WzTvoOrigin& origin);
    int Describe(const WzTvoOrigin& origin, WzTvoPeer& peer);

    /// Lets a connection join. Takes the socket only on success.
    /// @param id  of the new connection
    int Add(Descriptor& socket, const Peer& peer, std::uint64_t& id);
    void Remove(std::uint64_t id);

    /// Tells the client of a connection that has joined its interface number.
    int Welcome(std::uint64_t id, std::uint32_t riid);

    bool HasName() const
    {
        return m_hasName;
    }

    /// Hands out the ids of connections that have ended since the endpoint was added to a wait set.
    unsigned long TakeEnded(unsigned long count, std::uint64_t* ids);

    void Close() override;

    int WaitDescriptor() const override
    {
        return m_epoll.Get();
    }

    int DueIn() override;
    void Joined() override;

private:
    Endpoint();
    bool Watch(int descriptor, std::uint64_t key, std::uint32_t events);
    std::shared_ptr<ServerConnection> Find(std::uint64_t id);
    std::optional<int> Serve(std::uint64_t key,
                             std::uint32_t events,
                             wz_message* request,
                             wz_arena* arena,
                             WzTvoOrigin& origin);
    void RemoveLocked(std::uint64_t id);
    void SweepLocked();
    void TakeConnections();
    void Rest();
    int RestLeft();

    const Descriptor m_epoll;
    const Descriptor m_closeEvent;
    bool m_hasName = false;
    std::atomic<bool> m_closed = false;

    std::mutex m_mutex;
    std::vector<std::shared_ptr<ServerConnection>> m_slots;
    std::vector<std::uint32_t> m_free;
    std::optional<BoundName> m_name;
    bool m_keepsEnded = false;
    std::vector<std::uint64_t> m_ended;
    std::atomic<bool> m_hasEnded = false;

    std::mutex m_backlogMutex;
    std::optional<Backlog> m_backlog;
    std::atomic<std::int64_t> m_restUntil = 0;  ///< steady clock's count; 0: not resting
};

}  // namespace platform
