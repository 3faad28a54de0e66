#include "caller_pool.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <system_error>

#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace soak {

namespace {

pid_t StartKeeper(int socket, const std::filesystem::path& runtimeFolder)
{
    char program[] = TVO_SOAK_CALLERS;
    char* const arguments[] = {program, nullptr};
    setenv("TVO_RUNTIME_DIR", runtimeFolder.c_str(), 1);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, socket, STDIN_FILENO);
    pid_t keeper = -1;
    const int error = posix_spawn(&keeper, program, &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
    {
        throw std::system_error(error, std::generic_category(), program);
    }
    return keeper;
}

}  // namespace

CallerPool::CallerPool(const std::filesystem::path& runtimeFolder)
{
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0)
    {
        throw std::system_error(errno, std::generic_category(), "socketpair");
    }
    m_socket = ends[0];
    m_keeper = StartKeeper(ends[1], runtimeFolder);
    close(ends[1]);
}

CallerPool::~CallerPool()
{
    close(m_socket);
    waitpid(m_keeper, nullptr, 0);
}

void CallerPool::Start(std::uint32_t number)
{
    Send(Order::Start, number);
}

void CallerPool::Kill(std::uint32_t number)
{
    Send(Order::Kill, number);
}

std::optional<Report> CallerPool::Take(std::chrono::milliseconds limit)
{
    pollfd end{m_socket, POLLIN, 0};
    if (poll(&end, 1, static_cast<int>(limit.count())) == 0)
    {
        return std::nullopt;
    }
    Report report;
    if (recv(m_socket, &report, sizeof(report), 0) != sizeof(report))
    {
        throw std::runtime_error("The keeper of the callers has gone");
    }
    return report;
}

void CallerPool::Send(Order order, std::uint32_t number) const
{
    const OrderPacket packet{order, number};
    if (send(m_socket, &packet, sizeof(packet), MSG_NOSIGNAL) != sizeof(packet))
    {
        throw std::runtime_error("Nobody keeps the callers any more");
    }
}

}  // namespace soak
