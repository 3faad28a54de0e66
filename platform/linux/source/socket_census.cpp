#include "socket_census.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <linux/sock_diag.h>
#include <linux/unix_diag.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/time.h>

#include "descriptor.h"

namespace platform {
namespace {

/// The kernel answers at once; this is for one that does not.
constexpr timeval AnswerLimit{1, 0};

/// The kernel fills up to half of it with each packet.
constexpr std::size_t PacketRoom = std::size_t{64} * 1024;

struct Request
{
    nlmsghdr header;
    unix_diag_req query;
};

bool Ask(int socket)
{
    Request request{};
    request.header.nlmsg_len = sizeof request;
    request.header.nlmsg_type = SOCK_DIAG_BY_FAMILY;
    request.header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
    request.query.sdiag_family = AF_UNIX;
    request.query.udiag_states = 1U << TCP_LISTEN | 1U << TCP_ESTABLISHED;
    request.query.udiag_show = UDIAG_SHOW_VFS | UDIAG_SHOW_RQLEN;
    return ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &AnswerLimit, sizeof AnswerLimit) == 0 &&
           ::send(socket, &request, sizeof request, 0) == sizeof request;
}

/// The kernel's own way to write a device number, which is not that of stat(2).
std::uint32_t KernelDevice(dev_t device)
{
    constexpr unsigned MinorBits = 20;
    return ::gnu_dev_major(device) << MinorBits | ::gnu_dev_minor(device);
}

template <class Payload>
std::optional<Payload> ReadAttribute(const rtattr& attribute)
{
    Payload payload;
    if (RTA_PAYLOAD(&attribute) < sizeof payload)
    {
        return std::nullopt;
    }
    std::memcpy(&payload, RTA_DATA(&attribute), sizeof payload);
    return payload;
}

}  // namespace

SocketCensus SocketCensus::Take()
{
    SocketCensus census;
    const Descriptor socket(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_SOCK_DIAG));
    if (!socket || !Ask(socket.Get()))
    {
        return census;
    }
    alignas(nlmsghdr) std::array<char, PacketRoom> packet;
    bool goesOn = true;
    while (goesOn)
    {
        const ssize_t size = ::recv(socket.Get(), packet.data(), packet.size(), MSG_TRUNC);
        if (size < 0 && errno == EINTR)
        {
            continue;
        }
        if (size <= 0 || static_cast<std::size_t>(size) > packet.size())
        {
            // Half of the truth would be wrong numbers.
            return {};
        }
        goesOn = census.Add(packet.data(), static_cast<std::size_t>(size));
    }
    return census;
}

bool SocketCensus::Add(const void* packet, std::size_t size)
{
    auto left = static_cast<unsigned>(size);
    for (const auto* header = static_cast<const nlmsghdr*>(packet); NLMSG_OK(header, left);
         header = NLMSG_NEXT(header, left))
    {
        if (header->nlmsg_type == NLMSG_ERROR)
        {
            m_sockets.clear();
        }
        if (header->nlmsg_type != SOCK_DIAG_BY_FAMILY)
        {
            return false;
        }
        AddSocket(NLMSG_DATA(header), NLMSG_PAYLOAD(header, 0));
    }
    return true;
}

void SocketCensus::AddSocket(const void* socket, std::size_t size)
{
    const auto* message = static_cast<const unix_diag_msg*>(socket);
    if (size < sizeof *message)
    {
        return;
    }
    auto left = static_cast<unsigned>(size - sizeof *message);
    std::optional<unix_diag_vfs> file;
    std::optional<unix_diag_rqlen> queue;
    for (const auto* attribute = reinterpret_cast<const rtattr*>(message + 1);
         RTA_OK(attribute, left);
         attribute = RTA_NEXT(attribute, left))
    {
        if (attribute->rta_type == UNIX_DIAG_VFS)
        {
            file = ReadAttribute<unix_diag_vfs>(*attribute);
        }
        else if (attribute->rta_type == UNIX_DIAG_RQLEN)
        {
            queue = ReadAttribute<unix_diag_rqlen>(*attribute);
        }
    }
    if (!file)
    {
        return;
    }
    Sockets& sockets = m_sockets[{file->udiag_vfs_dev, file->udiag_vfs_ino}];
    if (message->udiag_state == TCP_LISTEN && queue)
    {
        sockets.isListening = true;
        sockets.load.waiting = queue->udiag_rqueue;
    }
    else
    {
        // One that was taken keeps the file of the socket that has taken it.
        ++sockets.load.served;
    }
}

std::optional<SocketLoad> SocketCensus::Find(int folder, const std::string& fileName) const
{
    struct stat status = {};
    if (::fstatat(folder, fileName.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
    {
        return std::nullopt;
    }
    const auto found =
        m_sockets.find({KernelDevice(status.st_dev), static_cast<std::uint32_t>(status.st_ino)});
    return found != m_sockets.end() && found->second.isListening ? std::optional(found->second.load)
                                                                 : std::nullopt;
}

}  // namespace platform
