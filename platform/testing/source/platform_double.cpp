#include <algorithm>
#include <utility>

#include <platform/testing/platform_double.h>

#include "state.h"

namespace platform::testing {
namespace {

template <typename Condition>
bool WaitFromOutside(std::chrono::milliseconds limit, Condition condition)
{
    World& world = World::Instance();
    Lock lock(world.mutex);
    return world.changed.wait_for(lock, limit, [&] { return condition(world); });
}

}  // namespace

PendingClient::PendingClient(std::shared_ptr<PendingRequest> request)
    : m_request(std::move(request))
{}

std::optional<int> PendingClient::WaitForVerdict(std::chrono::milliseconds limit) const
{
    std::optional<int> verdict;
    WaitFromOutside(limit,
                    [&](const World&)
                    {
                        verdict = m_request->verdict;
                        return verdict.has_value();
                    });
    return verdict;
}

PlatformDouble::PlatformDouble()
{
    World::Instance().Reset();
}

PlatformDouble::~PlatformDouble()
{
    World::Instance().Reset();
}

void PlatformDouble::Return(Call call, Script script)
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    world.Of(call).scripts.push_back(script);
}

void PlatformDouble::Fail(Call call, int code)
{
    Return(call, {.code = code, .times = Script::Forever});
}

void PlatformDouble::Restore(Call call)
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    world.Of(call).scripts.clear();
    world.Of(call).blocked = false;
    world.changed.notify_all();
}

void PlatformDouble::Block(Call call)
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    world.Of(call).blocked = true;
}

void PlatformDouble::Release(Call call)
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    world.Of(call).blocked = false;
    world.changed.notify_all();
}

Overrides& PlatformDouble::Override()
{
    return World::Instance().overrides;
}

unsigned PlatformDouble::Count(Call call) const
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    return world.Of(call).count;
}

bool PlatformDouble::WaitUntilCalled(Call call,
                                     unsigned count,
                                     std::chrono::milliseconds limit) const
{
    return WaitFromOutside(limit, [&](World& world) { return world.Of(call).count >= count; });
}

bool PlatformDouble::WaitUntilWaiting(Call call,
                                      unsigned threads,
                                      std::chrono::milliseconds limit) const
{
    return WaitFromOutside(limit, [&](World& world) { return world.Of(call).waiting >= threads; });
}

std::vector<Record> PlatformDouble::Journal(Call call) const
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    std::vector<Record> records = world.journal;
    std::erase_if(records, [&](const Record& record) { return record.call != call; });
    return records;
}

std::size_t PlatformDouble::OpenHandles() const
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    return world.objects.size();
}

void PlatformDouble::Serve(RemoteService service, ServiceHandler handler)
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    world.remotes.emplace_back(std::move(service), std::move(handler));
    world.changed.notify_all();
}

void PlatformDouble::Withdraw(const std::string& server)
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    std::erase_if(world.remotes, [&](const auto& row) { return row.first.server == server; });
    for (const auto& [handle, object] : world.objects)
    {
        const auto* connection = std::get_if<std::shared_ptr<Connection>>(&object);
        if (connection != nullptr && (*connection)->partner == server)
        {
            world.HangUp(**connection);
        }
    }
}

PendingClient PlatformDouble::RequestConnection(std::string client, std::string service)
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    auto request = std::make_shared<PendingRequest>();
    request->client = std::move(client);
    request->service = std::move(service);
    request->order = ++world.nextOrder;
    world.pending.push_back(request);
    world.changed.notify_all();
    return PendingClient(std::move(request));
}

std::vector<std::pair<std::string, std::string>> PlatformDouble::Published() const
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    return world.published;
}

std::string PlatformDouble::Entity() const
{
    World& world = World::Instance();
    const Lock lock(world.mutex);
    return world.entity;
}

}  // namespace platform::testing
