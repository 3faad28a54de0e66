#include "peer.h"

#include <cerrno>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>

#include "log.h"

namespace platform {

std::optional<Peer> AdmitPeer(int socket, std::uint32_t alsoAllowed)
{
    ucred credentials{};
    socklen_t size = sizeof credentials;
    if (::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0)
    {
        return std::nullopt;
    }
    const Peer peer{static_cast<std::uint32_t>(credentials.pid), credentials.uid};
    if (peer.uid != ::geteuid() && peer.uid != 0 && peer.uid != alsoAllowed)
    {
        LogOffence(peer, "it belongs to another user");
        return std::nullopt;
    }
    return peer;
}

void LogOffence(const Peer& peer, const char* reason)
{
    LogLine(TvoPlatformLogLevel::Warning,
            "connection of pid %u, uid %u closed: %s",
            peer.pid,
            peer.uid,
            reason);
}

Backlog::Outcome Backlog::Take(Descriptor& connection, Peer& peer)
{
    for (;;)
    {
        Descriptor accepted(::accept4(m_socket.Get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (accepted)
        {
            m_exhaustionTold = false;
            const auto admitted = AdmitPeer(accepted.Get(), ::geteuid());
            if (!admitted)
            {
                continue;
            }
            connection = std::move(accepted);
            peer = *admitted;
            return Outcome::Taken;
        }
        switch (errno)
        {
            case EAGAIN:
                return Outcome::Empty;
            case EINTR:
            case ECONNABORTED:
                break;
            default:
                if (!m_exhaustionTold)
                {
                    LogLine(TvoPlatformLogLevel::Error,
                            "no connection can be taken, resting: %s",
                            std::strerror(errno));
                    m_exhaustionTold = true;
                }
                return Outcome::Exhausted;
        }
    }
}

bool Backlog::HasWaiting() const
{
    pollfd state{m_socket.Get(), POLLIN, 0};
    return ::poll(&state, 1, 0) > 0;
}

}  // namespace platform
