#include "server_line.h"

#include <stdexcept>

#include <sys/socket.h>
#include <unistd.h>

namespace tvo::bench {
namespace {

void Send(int socket, int number)
{
    if (::send(socket, &number, sizeof number, MSG_NOSIGNAL) != sizeof number)
    {
        throw std::runtime_error("nobody is on the line");
    }
}

int Receive(int socket)
{
    int number = 0;
    if (::recv(socket, &number, sizeof number, 0) != sizeof number)
    {
        throw std::runtime_error("the other side has gone");
    }
    return number;
}

}  // namespace

ServerLine::Ends::Ends()
{
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
    {
        throw std::runtime_error("no socket pair");
    }
    own = ends[0];
    servers = ends[1];
}

ServerLine::Ends::~Ends()
{
    ::close(own);
    if (servers >= 0)
    {
        ::close(servers);
    }
}

ServerLine::ServerLine(const std::vector<std::string>& server) : m_server(server, m_ends.servers)
{
    // The server has it now, and its death is to be noticed.
    ::close(m_ends.servers);
    m_ends.servers = -1;
}

void ServerLine::Tell(int number) const
{
    Send(m_ends.own, number);
}

int ServerLine::Await() const
{
    return Receive(m_ends.own);
}

void ServerLine::CheckSilent() const
{
    int number = 0;
    if (::recv(m_ends.own, &number, sizeof number, MSG_DONTWAIT) >= 0)
    {
        throw std::runtime_error("the server says more than it is asked");
    }
}

void TellOwner(int number)
{
    Send(ServerSocket, number);
}

int AwaitOwner()
{
    return Receive(ServerSocket);
}

}  // namespace tvo::bench
