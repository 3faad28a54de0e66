#pragma once

#include <cstdint>
#include <optional>

#include "descriptor.h"

namespace platform {

/// Who is at the other end, by the kernel's word.
struct Peer
{
    std::uint32_t pid = 0;
    std::uint32_t uid = 0;
};

/// Asks the kernel who is at the other end of a connected socket.
/// @returns nothing, and one line, when it is neither this process's user nor root
/// @param alsoAllowed  one more user that may be there
std::optional<Peer> AdmitPeer(int socket, std::uint32_t alsoAllowed);

/// Writes the line about a connection that was closed for what its sender did. Lines about one
/// process that follow each other are joined.
void LogOffence(const Peer& peer, const char* reason);

/// A listening socket of this process.
class Backlog final
{
public:
    explicit Backlog(Descriptor socket) : m_socket(std::move(socket)) {}

    int Socket() const
    {
        return m_socket.Get();
    }

    enum class Outcome
    {
        Taken,
        Empty,
        Exhausted,  ///< no descriptor or memory; the caller rests before it tries again
    };

    /// Takes the next connection of an admitted peer; closes those of others.
    Outcome Take(Descriptor& connection, Peer& peer);

    /// Whether a connection is waiting.
    bool HasWaiting() const;

private:
    Descriptor m_socket;
};

}  // namespace platform
