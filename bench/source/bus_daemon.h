#pragma once

#include <string>

#include <sys/types.h>

namespace tvo::bench {

/// A session's bus daemon without any policy. Ends with this object, or with the thread that made
/// it. It starts the services that are installed, each on the processors and with the environment
/// that this process had.
class BusDaemon
{
public:
    /// Returns when it can be connected to.
    /// @param folder  for its configuration and its socket
    /// @throws std::runtime_error
    explicit BusDaemon(std::string folder);
    ~BusDaemon();
    BusDaemon(const BusDaemon&) = delete;
    BusDaemon& operator=(const BusDaemon&) = delete;

    std::string Address() const
    {
        return "unix:path=" + m_folder + "/bus";
    }

private:
    std::string WriteConfiguration() const;
    void Start(const std::string& configuration, int ready);

    const std::string m_folder;
    pid_t m_pid = -1;
};

}  // namespace tvo::bench
