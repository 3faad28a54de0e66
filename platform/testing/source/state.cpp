#include "state.h"

#include <utility>

namespace platform::testing {
namespace {

constexpr std::uint32_t FirstHandle = 0x00010001U;

}  // namespace

World& World::Instance()
{
    // Never destroyed: threads of a test that went wrong may still be in a call at exit.
    static World* const world = []
    {
        auto* made = new World;
        made->Reset();
        return made;
    }();
    return *world;
}

void World::Reset()
{
    const Lock lock(mutex);
    ++epoch;
    for (auto& call : calls)
    {
        // `waiting` counts threads that are still on their way out, and goes on doing so.
        call.count = 0;
        call.blocked = false;
        call.scripts.clear();
    }
    overrides = {};
    journal.clear();
    for (auto& [handle, object] : objects)
    {
        if (const auto* connection = std::get_if<std::shared_ptr<Connection>>(&object))
        {
            (*connection)->closed = true;
        }
        if (const auto* endpoint = std::get_if<std::shared_ptr<Endpoint>>(&object))
        {
            (*endpoint)->closed = true;
            (*endpoint)->connections.clear();
        }
    }
    objects.clear();
    nextHandle = FirstHandle;
    pending.clear();
    remotes.clear();
    registered.clear();
    entity.clear();
    endpointNumbers.clear();
    published.clear();
    changed.notify_all();
}

CallState& World::Of(Call call)
{
    return calls[static_cast<std::size_t>(call)];
}

std::uint32_t World::Add(Object object)
{
    const std::uint32_t handle = nextHandle++;
    objects.emplace(handle, std::move(object));
    return handle;
}

int World::Close(std::uint32_t handle)
{
    const auto node = objects.extract(handle);
    if (node.empty())
    {
        return XoObjectGone;
    }
    if (const auto* connection = std::get_if<std::shared_ptr<Connection>>(&node.mapped()))
    {
        HangUp(**connection);
    }
    else if (const auto* endpoint = std::get_if<std::shared_ptr<Endpoint>>(&node.mapped()))
    {
        CloseEndpoint(**endpoint);
    }
    else if (const auto& end = std::get<EventEnd>(node.mapped()); end.setter)
    {
        end.event->ended = true;
    }
    else
    {
        for (SNotice* notice : notices)
        {
            for (auto& subscription : notice->subscriptions)
            {
                subscription.closedHere |= subscription.handle == handle;
            }
        }
    }
    changed.notify_all();
    return XoOk;
}

std::shared_ptr<Connection> World::MakeConnection(std::string partner)
{
    auto connection = std::make_shared<Connection>();
    connection->id = ++nextConnection;
    connection->partner = std::move(partner);
    return connection;
}

void World::HangUp(Connection& connection)
{
    connection.closed = true;
    Leave(connection);
    changed.notify_all();
}

/// Nobody is asked for a caller that has gone: its requests go with it.
void World::Leave(Connection& connection)
{
    const std::shared_ptr<Endpoint> endpoint = std::exchange(connection.endpoint, nullptr);
    if (endpoint == nullptr)
    {
        return;
    }
    std::erase_if(endpoint->requests,
                  [&](const Letter& letter) { return letter.connection == connection.id; });
    endpoint->connections.erase(connection.id);
}

void World::CloseEndpoint(Endpoint& endpoint)
{
    endpoint.closed = true;
    endpoint.requests.clear();
    const auto connections = std::exchange(endpoint.connections, {});
    for (const auto& [id, connection] : connections)
    {
        connection->closed = true;
        connection->endpoint = nullptr;
    }
    std::erase_if(registered,
                  [&](const auto& row)
                  {
                      const auto* found = Find<std::shared_ptr<Endpoint>>(row.second.handle);
                      return found == nullptr || found->get() == &endpoint;
                  });
    changed.notify_all();
}

}  // namespace platform::testing
