#include "server_process.h"

#include <csignal>
#include <cstdio>
#include <exception>
#include <stdexcept>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tvo::bench {
namespace {

constexpr int ReadyPipe = 4;

[[noreturn]] void BecomeServer(const std::vector<std::string>& arguments, int socket, int ready)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    // Clear of the numbers that they are to get.
    const int socketCopy = socket < 0 ? -1 : ::fcntl(socket, F_DUPFD, 10);
    const int readyCopy = ::fcntl(ready, F_DUPFD, 10);
    ::dup2(readyCopy, ReadyPipe);
    if (socketCopy >= 0)
    {
        ::dup2(socketCopy, ServerSocket);
        ::close(socketCopy);
    }
    ::close(readyCopy);
    std::vector<char*> argv{const_cast<char*>("tvo_bench"), const_cast<char*>("--serve")};
    for (const std::string& argument : arguments)
    {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    ::execv("/proc/self/exe", argv.data());
    ::_exit(127);
}

}  // namespace

ServerProcess::ServerProcess(const std::vector<std::string>& arguments, int socket)
{
    int ready[2];
    if (::pipe2(ready, O_CLOEXEC) != 0)
    {
        throw std::runtime_error("no pipe");
    }
    m_pid = ::fork();
    if (m_pid == 0)
    {
        BecomeServer(arguments, socket, ready[1]);
    }
    ::close(ready[1]);
    char byte = 0;
    const bool isReady = m_pid > 0 && ::read(ready[0], &byte, 1) == 1;
    ::close(ready[0]);
    if (!isReady)
    {
        throw std::runtime_error("the server '" + arguments.front() + "' did not start");
    }
}

ServerProcess::~ServerProcess()
{
    ::kill(m_pid, SIGKILL);
    ::waitpid(m_pid, nullptr, 0);
}

void ReportReady()
{
    const char byte = 1;
    if (::write(ReadyPipe, &byte, 1) != 1)
    {
        throw std::runtime_error("nobody waits for this server");
    }
    ::close(ReadyPipe);
}

int Serve(int argc, char** argv)
{
    const auto server = ServersByName().find(argv[0]);
    if (server == ServersByName().end())
    {
        std::fprintf(stderr, "no server '%s'\n", argv[0]);
        return 2;
    }
    try
    {
        server->second({argv + 1, argv + argc});
        return 0;
    }
    catch (const std::exception& exception)
    {
        std::fprintf(stderr, "server '%s': %s\n", argv[0], exception.what());
        return 1;
    }
}

}  // namespace tvo::bench
