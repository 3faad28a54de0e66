#include "peer.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>

#include "log.h"
#include "offence_filter.h"

namespace platform {
namespace {

/// All listeners of the process run out at the same time, and many times a second.
void TellExhaustion(int error)
{
    static OffenceFilter filter;
    if (filter.Admit(0, OffenceFilter::Clock::now()))
    {
        LogLine(TvoPlatformLogLevel::Error,
                "no connection can be taken, resting: %s",
                std::strerror(error));
    }
}

}  // namespace

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
    static OffenceFilter filter;
    const auto keptBack = filter.Admit(peer.pid, OffenceFilter::Clock::now());
    if (!keptBack)
    {
        return;
    }
    char others[64] = "";
    if (*keptBack > 0)
    {
        std::snprintf(others, sizeof others, " (and %u more since the last line)", *keptBack);
    }
    LogLine(TvoPlatformLogLevel::Warning,
            "connection of pid %u, uid %u closed: %s%s",
            peer.pid,
            peer.uid,
            reason,
            others);
}

Backlog::Outcome Backlog::Take(Descriptor& connection, Peer& peer)
{
    for (;;)
    {
        Descriptor accepted(::accept4(m_socket.Get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (accepted)
        {
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
                TellExhaustion(errno);
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
