#include "socket_calls.h"

#include <cstdint>
#include <stdexcept>

#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "server_process.h"
#include "sizes.h"

namespace tvo::bench {
namespace {

void Check(bool isDone)
{
    if (!isDone)
    {
        throw std::runtime_error("a bare socket failed");
    }
}

/// A connected pair, of which the other end belongs to the server.
class SocketPair
{
public:
    explicit SocketPair(int type)
    {
        Check(::socketpair(AF_UNIX, type | SOCK_CLOEXEC, 0, m_ends) == 0);
    }

    ~SocketPair()
    {
        ::close(m_ends[0]);
        ::close(m_ends[1]);
    }

    SocketPair(const SocketPair&) = delete;
    SocketPair& operator=(const SocketPair&) = delete;

    int Ours() const
    {
        return m_ends[0];
    }

    int Servers() const
    {
        return m_ends[1];
    }

private:
    int m_ends[2] = {-1, -1};
};

class Epoll
{
public:
    explicit Epoll(int socket) : m_epoll(::epoll_create1(EPOLL_CLOEXEC))
    {
        epoll_event event{};
        event.events = EPOLLIN;
        Check(::epoll_ctl(m_epoll, EPOLL_CTL_ADD, socket, &event) == 0);
    }

    ~Epoll()
    {
        ::close(m_epoll);
    }

    Epoll(const Epoll&) = delete;
    Epoll& operator=(const Epoll&) = delete;

    void Wait() const
    {
        epoll_event event;
        Check(::epoll_wait(m_epoll, &event, 1, -1) == 1);
    }

private:
    const int m_epoll;
};

/// Sends a number of bytes a round and waits for the answer's.
class SocketCalls : public Contender
{
public:
    SocketCalls(const char* server, int type, std::size_t there, std::size_t back)
        : m_sockets(type), m_server({server}, m_sockets.Servers()), m_request(there), m_reply(back)
    {}

    void Run(int count) override
    {
        for (int i = 0; i < count; ++i)
        {
            Send();
            Await();
            Check(::recv(m_sockets.Ours(), m_reply.data(), m_reply.size(), 0) ==
                  static_cast<ssize_t>(m_reply.size()));
        }
    }

protected:
    int Socket() const
    {
        return m_sockets.Ours();
    }

private:
    void Send()
    {
        std::size_t sent = 0;
        while (sent < m_request.size())
        {
            const ssize_t part = ::send(
                m_sockets.Ours(), m_request.data() + sent, m_request.size() - sent, MSG_NOSIGNAL);
            Check(part > 0);
            sent += static_cast<std::size_t>(part);
        }
    }

    virtual void Await() {}

    const SocketPair m_sockets;
    const ServerProcess m_server;
    std::vector<char> m_request;
    std::vector<char> m_reply;
};

class WakeUps final : public SocketCalls
{
public:
    WakeUps()
        : SocketCalls("packet_wake_ups",
                      SOCK_SEQPACKET,
                      sizeof(std::uint32_t),
                      sizeof(std::uint32_t))
    {}

private:
    void Await() override
    {
        m_epoll.Wait();
    }

    const Epoll m_epoll{Socket()};
};

[[noreturn]] void AnswerPackets(std::size_t requestBytes, std::size_t replyBytes)
{
    const Epoll epoll(ServerSocket);
    std::vector<char> request(requestBytes);
    const std::vector<char> reply(replyBytes);
    ReportReady();
    for (;;)
    {
        epoll.Wait();
        Check(::recv(ServerSocket, request.data(), request.size(), 0) > 0);
        Check(::send(ServerSocket, reply.data(), reply.size(), MSG_NOSIGNAL) > 0);
    }
}

}  // namespace

std::unique_ptr<Contender> MakePacketCalls()
{
    return std::make_unique<SocketCalls>(
        "packets", SOCK_SEQPACKET, SmallRequestBytes + SmallArenaBytes, SmallReplyBytes);
}

std::unique_ptr<Contender> MakeStreamCalls()
{
    return std::make_unique<SocketCalls>("stream", SOCK_STREAM, LargeBytes, SmallReplyBytes);
}

std::unique_ptr<Contender> MakePacketWakeUps()
{
    return std::make_unique<WakeUps>();
}

void ServePackets(const std::vector<std::string>& /*arguments*/)
{
    AnswerPackets(SmallRequestBytes + SmallArenaBytes, SmallReplyBytes);
}

void ServePacketWakeUps(const std::vector<std::string>& /*arguments*/)
{
    AnswerPackets(sizeof(std::uint32_t), sizeof(std::uint32_t));
}

void ServeStream(const std::vector<std::string>& /*arguments*/)
{
    std::vector<char> request(LargeBytes);
    const std::vector<char> reply(SmallReplyBytes);
    ReportReady();
    for (;;)
    {
        Check(::recv(ServerSocket, request.data(), request.size(), MSG_WAITALL) ==
              static_cast<ssize_t>(request.size()));
        Check(::send(ServerSocket, reply.data(), reply.size(), MSG_NOSIGNAL) > 0);
    }
}

}  // namespace tvo::bench
