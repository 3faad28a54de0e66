#pragma once

#include <map>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tvo::bench {

/// This program in another process, as one of its servers, on the processors of this one. Ends with
/// this object, or with this process.
class ServerProcess
{
public:
    /// Returns when the server is ready.
    /// @param arguments  the server's name and what it wants to know
    /// @param socket  given to the server as its descriptor 3, if not negative
    /// @throws std::runtime_error
    explicit ServerProcess(const std::vector<std::string>& arguments, int socket = -1);
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

private:
    pid_t m_pid;
};

inline constexpr int ServerSocket = 3;

/// To be called by a server: it can be measured from now on.
void ReportReady();

/// Runs a server of `ServersByName` until it is killed.
int Serve(int argc, char** argv);

/// What the other process runs: takes its arguments, never returns on success.
using Server = void (*)(const std::vector<std::string>& arguments);
const std::map<std::string, Server>& ServersByName();

}  // namespace tvo::bench
