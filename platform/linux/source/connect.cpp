#include "connect.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>

#include <xo/connection.h>
#include <xo/sleep.h>

#include "client_connection.h"
#include "handle_table.h"
#include "handshake.h"
#include "names.h"
#include "process_name.h"

namespace platform {
namespace {

constexpr std::uint32_t FullBacklogPause = 10;

int TryConnect(int socket, const sockaddr_un& address)
{
    const auto* generic = reinterpret_cast<const sockaddr*>(&address);
    if (::connect(socket, generic, sizeof address) == 0)
    {
        return XoOk;
    }
    switch (errno)
    {
        case EAGAIN:
        case EINTR:
            return XoTimedOut;
        case ENOENT:
        case ECONNREFUSED:
            return XoObjectGone;
        case EACCES:
        case EPERM:
            return XoRefused;
        default:
            return XoNoResources;
    }
}

/// Waits for the verdict of a server that has been asked.
int AwaitVerdict(const Descriptor& socket,
                 const Peer& server,
                 const Deadline& deadline,
                 std::uint32_t& riid)
{
    for (;;)
    {
        const bool lastLook = deadline.HasPassed();
        pollfd state{socket.Get(), POLLIN, 0};
        ::poll(&state, 1, deadline.Left());
        ReceivedPacket packet;
        const Arrival arrival = ReceivePacket(socket.Get(), Waiting::No, packet);
        if (arrival == Arrival::Ended)
        {
            return XoObjectGone;
        }
        if (arrival == Arrival::Nothing && lastLook)
        {
            return XoTimedOut;
        }
        if (arrival == Arrival::Nothing)
        {
            continue;
        }
        const char* fault = packet.fault;
        std::optional<VerdictMessage> verdict;
        if (arrival == Arrival::Packet)
        {
            verdict = ParseVerdict(packet.bytes, packet.size, packet.descriptors.Count(), fault);
        }
        if (!verdict)
        {
            LogOffence(server, fault);
            return XoBroken;
        }
        riid = verdict->riid;
        // A refusal is told by no code that means something else to a client.
        const bool ordinary = verdict->result == XoOk || verdict->result == XoNoResources;
        return ordinary ? verdict->result : XoRefused;
    }
}

int AskForService(const Descriptor& socket,
                  const Peer& server,
                  const char* service,
                  const Deadline& deadline,
                  std::uint32_t& riid)
{
    switch (SendConnect(socket.Get(), {service, OwnName()}))
    {
        case Departure::Sent:
            return AwaitVerdict(socket, server, deadline, riid);
        case Departure::NoResources:
            return XoNoResources;
        case Departure::Full:
        case Departure::Gone:
            break;
    }
    return XoObjectGone;
}

}  // namespace

int ConnectTo(Place place,
              const std::string& encodedName,
              const Deadline& deadline,
              Descriptor& socket,
              Peer& server)
{
    const int folder = Rendezvous::Instance().Open(place, Purpose::Look);
    if (folder < 0)
    {
        return XoBroken;
    }
    Descriptor made(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!made)
    {
        return XoNoResources;
    }
    const sockaddr_un address = SocketAddress(folder, encodedName + std::string(SocketSuffix));
    int result = TryConnect(made.Get(), address);
    while (result == XoTimedOut && !deadline.HasPassed())
    {
        // The backlog is full.
        XoSleep(FullBacklogPause);
        result = TryConnect(made.Get(), address);
    }
    if (result != XoOk)
    {
        return result;
    }
    const uid_t owner = Rendezvous::Instance().Owner();
    const auto admitted = AdmitPeer(made.Get(), ::geteuid() == 0 ? owner : ::geteuid());
    if (!admitted)
    {
        return XoRefused;
    }
    ::fcntl(made.Get(), F_SETFL, 0);
    server = *admitted;
    socket = std::move(made);
    return XoOk;
}

}  // namespace platform

using namespace platform;

int XoCmConnect(const char* server,
                const char* service,
                std::uint32_t timeoutMs,
                std::uint32_t* handle,
                std::uint32_t* riid)
{
    *handle = XoInvalidHandle;
    *riid = InvalidRiid;
    const auto encodedName = EncodeName(server);
    if (!encodedName || service == nullptr || *service == '\0' ||
        std::char_traits<char>::length(service) > MaxServiceName)
    {
        return XoInvalidArgument;
    }
    const Deadline deadline(timeoutMs);
    Descriptor socket;
    Peer peer;
    int result = ConnectTo(Place::Servers, *encodedName, deadline, socket, peer);
    std::uint32_t number = InvalidRiid;
    if (result == XoOk)
    {
        result = AskForService(socket, peer, service, deadline, number);
    }
    if (result != XoOk)
    {
        return result;
    }
    *handle = HandleTable::Instance().Add(
        std::make_shared<ClientConnection>(std::move(socket), peer, Place::Servers, *encodedName));
    *riid = *handle == XoInvalidHandle ? InvalidRiid : number;
    return *handle == XoInvalidHandle ? XoNoResources : XoOk;
}
