#include "connect.h"

#include <cerrno>
#include <cstring>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>

#include <tools/cert_approve/failure.h>

namespace cert_approve {
namespace {

struct SocketAddress
{
    sockaddr_storage storage{};
    socklen_t size = 0;
};

struct Resolved
{
    int error = 0;  // of getaddrinfo
    std::vector<SocketAddress> addresses;
};

[[noreturn]] void Fail(const Endpoint& endpoint, const std::string& reason)
{
    throw Failure(
        ExitStatus::ServerUnreachable,
        fmt::format("cannot reach {}, port {}: {}", endpoint.host, endpoint.port, reason));
}

Resolved Resolve(const Endpoint& endpoint)
{
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* list = nullptr;
    Resolved resolved;
    resolved.error = ::getaddrinfo(endpoint.host.c_str(), endpoint.port.c_str(), &hints, &list);
    if (resolved.error != 0)
    {
        return resolved;
    }
    const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> owner(list, &::freeaddrinfo);
    for (const addrinfo* entry = list; entry != nullptr; entry = entry->ai_next)
    {
        SocketAddress& address = resolved.addresses.emplace_back();
        std::memcpy(&address.storage, entry->ai_addr, entry->ai_addrlen);
        address.size = entry->ai_addrlen;
    }
    return resolved;
}

/// The resolver has no limit of its own that could be set, so it works on a thread that is left
/// behind when the time is up.
std::vector<SocketAddress> ResolveWithin(const Endpoint& endpoint, const Deadline& deadline)
{
    std::packaged_task<Resolved()> task([endpoint] { return Resolve(endpoint); });
    std::future<Resolved> future = task.get_future();
    std::thread(std::move(task)).detach();
    if (future.wait_for(deadline.Left()) != std::future_status::ready)
    {
        Fail(endpoint, "its name could not be resolved in time");
    }
    Resolved resolved = future.get();
    if (resolved.error != 0)
    {
        Fail(endpoint, ::gai_strerror(resolved.error));
    }
    return std::move(resolved.addresses);
}

int SocketError(int socket)
{
    int error = 0;
    socklen_t size = sizeof(error);
    return ::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 ? error : errno;
}

/// @returns 0 or an errno
int ConnectOne(const SocketAddress& address, const Deadline& deadline, Descriptor& connected)
{
    Descriptor socket(
        ::socket(address.storage.ss_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket)
    {
        return errno;
    }
    const auto* const target = reinterpret_cast<const sockaddr*>(&address.storage);
    if (::connect(socket.Get(), target, address.size) != 0)
    {
        if (errno != EINPROGRESS)
        {
            return errno;
        }
        if (!WaitFor(socket.Get(), POLLOUT, deadline))
        {
            return ETIMEDOUT;
        }
        if (const int error = SocketError(socket.Get()); error != 0)
        {
            return error;
        }
    }
    connected = std::move(socket);
    return 0;
}

}  // namespace

bool WaitFor(int socket, short events, const Deadline& deadline)
{
    for (;;)
    {
        pollfd entry{socket, events, 0};
        const int count = ::poll(&entry, 1, static_cast<int>(deadline.Left().count()));
        if (count >= 0 || errno != EINTR)
        {
            return count > 0;
        }
    }
}

Descriptor Connect(const Endpoint& endpoint, const Deadline& deadline)
{
    const std::vector<SocketAddress> addresses = ResolveWithin(endpoint, deadline);
    Descriptor connected;
    int error = EADDRNOTAVAIL;
    for (std::size_t i = 0; i < addresses.size(); ++i)
    {
        // An address that swallows everything must not use up the time of the others.
        const Deadline share(deadline.Left() / static_cast<int>(addresses.size() - i));
        error = ConnectOne(addresses[i], share, connected);
        if (error == 0)
        {
            return connected;
        }
    }
    Fail(endpoint, std::strerror(error));
}

}  // namespace cert_approve
