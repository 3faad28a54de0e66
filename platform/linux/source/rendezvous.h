#pragma once

#include <array>
#include <mutex>
#include <string>

#include <sys/types.h>
#include <sys/un.h>

#include "descriptor.h"

namespace platform {

/// The two halves of the rendezvous folder.
enum class Place
{
    Servers,
    Connections,
};

enum class Purpose
{
    Look,
    Create,  ///< the caller is going to make files there
};

/// The folder through which processes find each other: `TVO_RUNTIME_DIR`, else
/// `$XDG_RUNTIME_DIR/tvo`, else `/run/tvo`. Opened and checked once; from then on only its
/// descriptors count, whatever happens to the path. May be used from any thread.
class Rendezvous final
{
public:
    static Rendezvous& Instance();

    /// Makes what is missing.
    /// @returns a descriptor that stays open, or -1 with one line that says why; the same reason is
    ///          not told twice in a row
    int Open(Place place, Purpose purpose);

    /// Owner of the folder; valid after a successful `Open`.
    uid_t Owner() const;

private:
    const char* OpenRoot(std::string& path);
    const char* OpenPlace(Descriptor& place, const char* name);

    mutable std::mutex m_mutex;
    Descriptor m_root;
    uid_t m_owner = 0;
    std::array<Descriptor, 2> m_places;
    std::string m_lastReason;
};

/// The address of a socket in an open folder. The descriptor, not the path, names the folder, and
/// the address is short enough whatever the path is.
sockaddr_un SocketAddress(int folder, const std::string& fileName);

}  // namespace platform
