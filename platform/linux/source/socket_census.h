#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace platform {

/// What a listening socket has to do.
struct SocketLoad
{
    std::uint32_t waiting = 0;  ///< connections that nobody has taken from the backlog
    std::uint32_t served = 0;   ///< connections that were taken and are open
};

/// The sockets that listen in the file system at one moment, by the kernel's own list
/// (sock_diag(7)), with the connections made there.
class SocketCensus final
{
public:
    /// Empty when the kernel does not let us.
    static SocketCensus Take();

    /// @returns nothing for a file on which no socket known here listens
    std::optional<SocketLoad> Find(int folder, const std::string& fileName) const;

private:
    /// Device and inode as the kernel numbers them.
    using File = std::pair<std::uint32_t, std::uint32_t>;

    struct Sockets
    {
        bool isListening = false;
        SocketLoad load;
    };

    /// Takes in one packet of the kernel's answer.
    /// @returns whether another one follows
    bool Add(const void* packet, std::size_t size);

    /// @param socket  a unix_diag_msg with its attributes
    void AddSocket(const void* socket, std::size_t size);

    std::map<File, Sockets> m_sockets;
};

}  // namespace platform
