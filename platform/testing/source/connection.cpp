#include <algorithm>
#include <cstring>

#include <unistd.h>

#include <xo/connection.h>
#include <xo/handle.h>
#include <xo/sleep.h>

#include "message_rules.h"
#include "run.h"

namespace platform::testing {
namespace {

int ConnectRemote(World& world,
                  const RemoteService& remote,
                  const ServiceHandler& handler,
                  std::uint32_t* handle,
                  std::uint32_t* riid)
{
    auto connection = world.MakeConnection(remote.server);
    connection->handler = handler;
    *handle = world.Add(connection);
    *riid = remote.riid;
    return XoOk;
}

/// A client inside this process asks its own entity and waits for the accepting thread.
int ConnectSelf(World& world,
                Lock& lock,
                const char* service,
                std::uint32_t timeoutMs,
                std::uint32_t* handle,
                std::uint32_t* riid)
{
    auto request = std::make_shared<PendingRequest>();
    request->order = ++world.nextOrder;
    request->client =
        world.entity + "@" + std::to_string(::getpid()) + "." + std::to_string(request->order);
    request->service = service;
    world.pending.push_back(request);
    const Wake wake =
        world.Wait(lock, Call::CmConnect, timeoutMs, [&] { return request->verdict.has_value(); });
    if (wake != Wake::Ready)
    {
        request->gone = true;
        return wake == Wake::Expired ? XoTimedOut : XoObjectGone;
    }
    *handle = request->handle;
    *riid = request->riid;
    return *request->verdict;
}

/// Requests never reported first, in order of arrival, then the one reported longest ago.
std::shared_ptr<PendingRequest> NextPending(World& world)
{
    std::erase_if(world.pending, [](const auto& request) { return request->gone; });
    const auto next = std::min_element(world.pending.begin(),
                                       world.pending.end(),
                                       [](const auto& left, const auto& right) {
                                           return std::pair(left->reported, left->order) <
                                                  std::pair(right->reported, right->order);
                                       });
    return next == world.pending.end() ? nullptr : *next;
}

std::shared_ptr<PendingRequest> FindReported(World& world, const char* client, const char* service)
{
    std::shared_ptr<PendingRequest> latest;
    for (const auto& request : world.pending)
    {
        const bool named = request->client == client && request->service == service;
        if (named && !request->gone && request->reported > (latest ? latest->reported : 0))
        {
            latest = request;
        }
    }
    return latest;
}

void CopyName(const std::string& name, char* buffer)
{
    const std::size_t size = std::min(name.size(), XoCmNameSize - 1);
    std::memcpy(buffer, name.data(), size);
    buffer[size] = '\0';
}

void Decide(World& world, const std::shared_ptr<PendingRequest>& request, int verdict)
{
    request->verdict = verdict;
    std::erase(world.pending, request);
    world.changed.notify_all();
}

}  // namespace
}  // namespace platform::testing

using namespace platform::testing;

int XoCmConnect(const char* server,
                const char* service,
                std::uint32_t timeoutMs,
                std::uint32_t* handle,
                std::uint32_t* riid)
{
    const auto body = [=](World& world, Lock& lock)
    {
        *handle = XoInvalidHandle;
        *riid = platform::InvalidRiid;
        for (const auto& [remote, handler] : world.remotes)
        {
            if (remote.server == server && remote.service == service)
            {
                return ConnectRemote(world, remote, handler, handle, riid);
            }
        }
        const bool own = !world.published.empty() && world.entity == server;
        return own ? ConnectSelf(world, lock, service, timeoutMs, handle, riid) : XoObjectGone;
    };
    return Run(Call::CmConnect, body, server, service, timeoutMs);
}

int XoCmListen(const char* /*filter*/, std::uint32_t timeoutMs, char* client, char* service)
{
    const auto body = [=](World& world, Lock& lock)
    {
        std::shared_ptr<PendingRequest> next;
        const Wake wake = world.Wait(lock,
                                     Call::CmListen,
                                     timeoutMs,
                                     [&]
                                     {
                                         next = NextPending(world);
                                         return next != nullptr;
                                     });
        if (wake != Wake::Ready)
        {
            return wake == Wake::Expired ? XoTimedOut : XoObjectGone;
        }
        next->reported = ++world.nextOrder;
        CopyName(next->client, client);
        CopyName(next->service, service);
        return XoOk;
    };
    return Run(Call::CmListen, body, timeoutMs);
}

int XoCmAccept(const char* client,
               const char* service,
               std::uint32_t riid,
               std::uint32_t listener,
               std::uint32_t* handle)
{
    const auto body = [=](World& world, Lock& lock)
    {
        if (const auto replacement = world.overrides.cmAccept)
        {
            return RunOverride(lock, replacement, client, service, riid, listener, handle);
        }
        const auto request = FindReported(world, client, service);
        if (request == nullptr)
        {
            return XoObjectGone;
        }
        std::uint32_t joined = listener;
        if (listener == XoInvalidHandle)
        {
            joined = world.Add(std::make_shared<Endpoint>());
        }
        const auto* endpoint = world.Find<std::shared_ptr<Endpoint>>(joined);
        if (endpoint == nullptr)
        {
            return XoObjectGone;
        }
        auto connection = world.MakeConnection(world.entity);
        connection->endpoint = *endpoint;
        (*endpoint)->connections.emplace(connection->id, connection);
        request->handle = world.Add(connection);
        request->riid = riid;
        *handle = joined;
        Decide(world, request, XoOk);
        return XoOk;
    };
    return Run(Call::CmAccept, body, client, service, riid, listener);
}

int XoCmDrop(const char* client, const char* service)
{
    const auto body = [=](World& world, Lock&)
    {
        const auto request = FindReported(world, client, service);
        if (request == nullptr)
        {
            return XoObjectGone;
        }
        Decide(world, request, XoRefused);
        return XoOk;
    };
    return Run(Call::CmDrop, body, client, service);
}

int XoHandleClose(std::uint32_t handle)
{
    const auto body = [=](World& world, Lock&)
    {
        return world.Close(handle);
    };
    return Run(Call::HandleClose, body, handle);
}

void XoSleep(std::uint32_t milliseconds)
{
    Run(
        Call::Sleep, [](World&, Lock&) { return XoOk; }, milliseconds);
}
