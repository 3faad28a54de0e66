#include "bound_name.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include "log.h"
#include "rendezvous.h"

namespace platform {
namespace {

constexpr int BacklogLength = 1024;

bool BindTo(int socket, int folder, const std::string& fileName)
{
    const sockaddr_un address = SocketAddress(folder, fileName);
    return ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

/// Makes the socket under a temporary name, so that nobody meets one that does not listen yet.
Descriptor ListenAs(int folder, const std::string& encodedName)
{
    const std::string temporary = encodedName + ".new";
    const std::string final = encodedName + std::string(SocketSuffix);
    Descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    ::unlinkat(folder, temporary.c_str(), 0);
    const bool ready = socket && BindTo(socket.Get(), folder, temporary) &&
                       ::listen(socket.Get(), BacklogLength) == 0 &&
                       ::fchmodat(folder, temporary.c_str(), 0600, 0) == 0 &&
                       ::renameat(folder, temporary.c_str(), folder, final.c_str()) == 0;
    if (!ready)
    {
        LogLine(TvoPlatformLogLevel::Error,
                "cannot listen as %s: %s",
                encodedName.c_str(),
                std::strerror(errno));
        ::unlinkat(folder, temporary.c_str(), 0);
        return Descriptor();
    }
    return socket;
}

}  // namespace

std::optional<BoundName> BoundName::Take(int folder,
                                         std::string encodedName,
                                         const std::vector<LockFileLine>& lines)
{
    auto lock = LockFile::Take(folder, encodedName);
    if (!lock)
    {
        return std::nullopt;
    }
    Descriptor socket = ListenAs(folder, encodedName);
    if (!socket)
    {
        return std::nullopt;
    }
    BoundName name(folder, std::move(encodedName), std::move(*lock), std::move(socket));
    if (!name.m_lock.Append(lines))
    {
        LogLine(TvoPlatformLogLevel::Error,
                "cannot write the lock file of %s",
                name.m_encodedName.c_str());
        return std::nullopt;
    }
    return name;
}

BoundName::BoundName(int folder, std::string encodedName, LockFile lock, Descriptor socket)
    : m_folder(folder),
      m_process(::getpid()),
      m_encodedName(std::move(encodedName)),
      m_lock(std::move(lock)),
      m_socket(std::move(socket))
{}

BoundName::BoundName(BoundName&& other) noexcept
    : m_folder(other.m_folder),
      m_process(other.m_process),
      m_encodedName(std::exchange(other.m_encodedName, {})),
      m_lock(std::move(other.m_lock)),
      m_socket(std::move(other.m_socket))
{}

BoundName::~BoundName()
{
    // Under the lock still: the next holder's socket cannot be meant.
    if (!m_encodedName.empty() && m_process == ::getpid())
    {
        ::unlinkat(m_folder, (m_encodedName + std::string(SocketSuffix)).c_str(), 0);
    }
}

Descriptor BoundName::TakeSocket()
{
    return std::move(m_socket);
}

bool BoundName::Append(const LockFileLine& line) const
{
    return m_lock.Append({line});
}

}  // namespace platform
