#pragma once

#include <string>
#include <vector>

#include "server_process.h"

namespace tvo::bench {

/// A server that numbers go to and come from.
class ServerLine
{
public:
    /// Returns when the server is ready.
    /// @throws std::runtime_error
    explicit ServerLine(const std::vector<std::string>& server);

    /// Both throw std::runtime_error when the server has gone.
    void Tell(int number) const;
    int Await() const;

    /// @throws std::runtime_error when a number is there that nobody has awaited
    void CheckSilent() const;

private:
    /// Closes what it still has.
    struct Ends
    {
        Ends();
        ~Ends();
        Ends(const Ends&) = delete;
        Ends& operator=(const Ends&) = delete;

        int own = -1;
        int servers = -1;
    };

    Ends m_ends;
    const ServerProcess m_server;
};

/// The server's end of the line. Both throw std::runtime_error when the other side has gone.
void TellOwner(int number);
int AwaitOwner();

}  // namespace tvo::bench
