#include "rendezvous.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include "log.h"

namespace platform {
namespace {

constexpr mode_t OwnerOnly = 0700;
constexpr mode_t OthersBits = 0077;
constexpr int OpenFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

std::string ConfiguredPath()
{
    std::string path = "/run/tvo";
    if (const char* given = std::getenv("TVO_RUNTIME_DIR"); given != nullptr && *given != '\0')
    {
        path = given;
    }
    else if (const char* base = std::getenv("XDG_RUNTIME_DIR"); base != nullptr && *base != '\0')
    {
        path = std::string(base) + "/tvo";
    }
    // A slash at the end would let a symbolic link through.
    while (path.size() > 1 && path.back() == '/')
    {
        path.pop_back();
    }
    return path;
}

const char* OpenError()
{
    switch (errno)
    {
        case ENOENT:
            return "it does not exist";
        case ELOOP:
        case ENOTDIR:
            return "it is no folder, or a symbolic link";
        default:
            return std::strerror(errno);
    }
}

}  // namespace

Rendezvous& Rendezvous::Instance()
{
    static auto* const rendezvous = new Rendezvous;
    return *rendezvous;
}

int Rendezvous::Open(Place place, Purpose purpose)
{
    const std::lock_guard lock(m_mutex);
    std::string path;
    const char* reason = m_root ? nullptr : OpenRoot(path);
    if (reason == nullptr && purpose == Purpose::Create && m_owner != ::geteuid())
    {
        reason = "it belongs to another user, nothing is created there";
    }
    Descriptor& descriptor = m_places[static_cast<std::size_t>(place)];
    if (reason == nullptr && !descriptor)
    {
        reason = OpenPlace(descriptor, place == Place::Servers ? "servers" : "connections");
    }
    if (reason == nullptr)
    {
        m_lastReason.clear();
        return descriptor.Get();
    }
    const std::string line = "rendezvous folder " + ConfiguredPath() + ": " + reason;
    if (line != m_lastReason)
    {
        LogLine(TvoPlatformLogLevel::Error, "%s", line.c_str());
        m_lastReason = line;
    }
    return -1;
}

uid_t Rendezvous::Owner() const
{
    const std::lock_guard lock(m_mutex);
    return m_owner;
}

const char* Rendezvous::OpenRoot(std::string& path)
{
    path = ConfiguredPath();
    if (path.front() != '/')
    {
        return "the path is not absolute";
    }
    if (::mkdir(path.c_str(), OwnerOnly) != 0 && errno != EEXIST)
    {
        return OpenError();
    }
    Descriptor root(::open(path.c_str(), OpenFlags));
    struct stat status = {};
    if (!root || ::fstat(root.Get(), &status) != 0)
    {
        return OpenError();
    }
    if (status.st_uid != ::geteuid() && ::geteuid() != 0)
    {
        return "it belongs to another user";
    }
    if ((status.st_mode & OthersBits) != 0)
    {
        return "others have access to it, its mode must be 0700";
    }
    m_owner = status.st_uid;
    m_root = std::move(root);
    return nullptr;
}

const char* Rendezvous::OpenPlace(Descriptor& place, const char* name)
{
    if (m_owner == ::geteuid() && ::mkdirat(m_root.Get(), name, OwnerOnly) != 0 && errno != EEXIST)
    {
        return OpenError();
    }
    Descriptor opened(::openat(m_root.Get(), name, OpenFlags));
    struct stat status = {};
    if (!opened || ::fstat(opened.Get(), &status) != 0)
    {
        return OpenError();
    }
    if (status.st_uid != m_owner || (status.st_mode & OthersBits) != 0)
    {
        return "a folder inside has another owner or lets others in";
    }
    place = std::move(opened);
    return nullptr;
}

sockaddr_un SocketAddress(int folder, const std::string& fileName)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(
        address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d/%s", folder, fileName.c_str());
    return address;
}

}  // namespace platform
