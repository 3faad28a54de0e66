#include <algorithm>
#include <atomic>
#include <cstdio>
#include <random>

#include <shared/ipc_utils/publish.h>
#include <tvo/platform_log.h>
#include <tvo/random.h>
#include <tvo/service_locator.h>
#include <tvo/task.h>

#include "message_rules.h"
#include "run.h"

namespace platform::testing {
namespace {

constexpr std::uint32_t SelfHandle = 0x00010000U;

std::map<std::string, std::uint16_t> NumbersOf(const TvoComponentTree& tree)
{
    std::map<std::string, std::uint16_t> numbers;
    const auto add = [&](const TvoEndpointDescription* endpoints, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
        {
            numbers[endpoints[i].name] = endpoints[i].index;
        }
    };
    add(tree.endpoints, tree.endpointCount);
    for (std::size_t i = 0; i < tree.componentCount; ++i)
    {
        add(tree.components[i].endpoints, tree.components[i].endpointCount);
    }
    return numbers;
}

shared::ipc_utils::NameBuffer ToBuffer(const std::string& text)
{
    shared::ipc_utils::NameBuffer buffer{};
    std::copy_n(text.begin(), std::min(text.size(), buffer.size() - 1), buffer.begin());
    return buffer;
}

const RegisteredEndpoint* FindRegistered(const World& world, const std::string& name)
{
    for (const auto& [identifier, row] : world.registered)
    {
        if (row.name == name)
        {
            return &row;
        }
    }
    return nullptr;
}

void LogToStandardError(TvoPlatformLogLevel /*level*/, const char* text)
{
    std::fprintf(stderr, "%s\n", text);
}

std::atomic<TvoPlatformLogFunction> g_log{&LogToStandardError};

}  // namespace

}  // namespace platform::testing

using namespace platform::testing;

void TvoPlatformSetLog(TvoPlatformLogFunction function)
{
    g_log = function != nullptr ? function : &LogToStandardError;
}

std::uint32_t ServiceLocatorRegister(const char* connectionId,
                                     const void* /*options*/,
                                     std::uint32_t /*optionsSize*/,
                                     std::uint64_t* identifier)
{
    const auto body = [=](World& world, Lock&) -> std::uint32_t
    {
        *identifier = 0;
        if (*connectionId == '\0' || FindRegistered(world, connectionId) != nullptr)
        {
            return XoInvalidHandle;
        }
        const std::uint32_t handle = world.Add(std::make_shared<Endpoint>());
        *identifier = ++world.nextOrder;
        world.registered[*identifier] = {connectionId, handle};
        return handle;
    };
    return Run(Call::LocatorRegister, body, connectionId);
}

void ServiceLocatorUnregister(std::uint64_t identifier)
{
    const auto body = [=](World& world, Lock&)
    {
        const auto node = world.registered.extract(identifier);
        return node.empty() ? XoObjectGone : world.Close(node.mapped().handle);
    };
    Run(Call::LocatorUnregister, body, identifier);
}

std::uint32_t ServiceLocatorConnect(const char* connectionId)
{
    const auto body = [=](World& world, Lock&) -> std::uint32_t
    {
        const RegisteredEndpoint* own = FindRegistered(world, connectionId);
        if (own == nullptr)
        {
            return XoInvalidHandle;
        }
        auto connection = world.MakeConnection(connectionId);
        connection->locator = true;
        connection->endpoint = *world.Find<std::shared_ptr<Endpoint>>(own->handle);
        connection->endpoint->connections.emplace(connection->id, connection);
        return world.Add(connection);
    };
    return Run(Call::LocatorConnect, body, connectionId);
}

std::uint16_t ServiceLocatorGetRiid(std::uint32_t connection, const char* endpoint)
{
    const auto body = [=](World& world, Lock&) -> std::uint16_t
    {
        const auto* found = world.Find<std::shared_ptr<Connection>>(connection);
        if (found == nullptr || !(*found)->locator)
        {
            return platform::InvalidRiid;
        }
        const auto number = world.endpointNumbers.find(endpoint);
        return number == world.endpointNumbers.end() ? platform::InvalidRiid : number->second;
    };
    return Run(Call::LocatorGetRiid, body, connection, endpoint);
}

std::uint32_t TvoTaskGetSelf()
{
    return SelfHandle;
}

int TvoTaskSetComponentTree(std::uint32_t self, const TvoComponentTree* tree)
{
    const auto body = [=](World& world, Lock&)
    {
        if (self != SelfHandle || tree == nullptr || !world.published.empty())
        {
            return XoInvalidArgument;
        }
        world.entity = tree->entity;
        world.endpointNumbers = NumbersOf(*tree);
        return XoOk;
    };
    return Run(Call::TaskSetComponentTree, body, self);
}

int TvoTaskConnectToService(std::uint32_t client, std::uint32_t server, const char* connectionId)
{
    const auto body = [=](World&, Lock&)
    {
        if (client != SelfHandle || server != SelfHandle || *connectionId == '\0')
        {
            return XoInvalidArgument;
        }
        return XoOk;
    };
    return Run(Call::TaskConnectToService, body, client, server, connectionId);
}

void TvoTaskRestoreDescriptorLimit()
{
    // The double has raised nothing.
}

int TvoRandomGenerate(std::size_t size, void* buffer)
{
    const auto body = [=](World&, Lock&)
    {
        std::random_device source;
        auto* bytes = static_cast<unsigned char*>(buffer);
        std::generate_n(bytes, size, [&] { return static_cast<unsigned char>(source()); });
        return XoOk;
    };
    return Run(Call::RandomGenerate, body, size);
}

namespace shared::ipc_utils {

bool TryPublishService(const char* interfaceName, const char* serviceName)
{
    const auto body = [=](World& world, Lock&)
    {
        if (world.entity.empty())
        {
            return false;
        }
        world.published.emplace_back(interfaceName, serviceName);
        return true;
    };
    return Run(Call::PublishService, body, interfaceName, serviceName);
}

std::optional<std::pair<NameBuffer, NameBuffer>> FindConnectionTargetForType(
    const char* interfaceName,
    std::uint32_t timeoutMs)
{
    using Target = std::optional<std::pair<NameBuffer, NameBuffer>>;
    const auto body = [=](World& world, Lock& lock) -> Target
    {
        Target target;
        const auto look = [&]
        {
            for (const auto& [remote, handler] : world.remotes)
            {
                if (remote.interfaceName == interfaceName)
                {
                    target.emplace(ToBuffer(remote.server), ToBuffer(remote.service));
                    return true;
                }
            }
            for (const auto& [published, service] : world.published)
            {
                if (published == interfaceName)
                {
                    target.emplace(ToBuffer(world.entity), ToBuffer(service));
                    return true;
                }
            }
            return false;
        };
        world.Wait(lock, Call::FindTarget, timeoutMs, look);
        return target;
    };
    return Run(Call::FindTarget, body, interfaceName, timeoutMs);
}

}  // namespace shared::ipc_utils
