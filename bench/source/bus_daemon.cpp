#include "bus_daemon.h"

#include <csignal>
#include <fstream>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tvo::bench {

BusDaemon::BusDaemon(std::string folder) : m_folder(std::move(folder))
{
    const std::string configuration = WriteConfiguration();
    int ready[2];
    if (::pipe2(ready, O_CLOEXEC) != 0)
    {
        throw std::runtime_error("no pipe");
    }
    Start(configuration, ready[1]);
    ::close(ready[1]);
    // It says where it listens as soon as it does.
    char byte = 0;
    const bool isReady = m_pid > 0 && ::read(ready[0], &byte, 1) == 1;
    ::close(ready[0]);
    if (!isReady)
    {
        throw std::runtime_error("the bus daemon did not start");
    }
}

BusDaemon::~BusDaemon()
{
    ::kill(m_pid, SIGKILL);
    ::waitpid(m_pid, nullptr, 0);
    ::unlink((m_folder + "/bus").c_str());
}

std::string BusDaemon::WriteConfiguration() const
{
    std::string file = m_folder + "/bus.conf";
    std::ofstream(file)
        << "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
           " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
           "<busconfig><type>session</type><listen>"
        << Address()
        << "</listen><auth>EXTERNAL</auth><standard_session_servicedirs/>"
           "<policy context=\"default\">"
           "<allow send_destination=\"*\" eavesdrop=\"true\"/>"
           "<allow eavesdrop=\"true\"/><allow own=\"*\"/>"
           "</policy></busconfig>\n";
    return file;
}

void BusDaemon::Start(const std::string& configuration, int ready)
{
    m_pid = ::fork();
    if (m_pid == 0)
    {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int readyCopy = ::fcntl(ready, F_DUPFD, 0);
        // It complains about descriptors that it does not need.
        ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
        ::execlp("dbus-daemon",
                 "dbus-daemon",
                 "--nofork",
                 "--nosyslog",
                 ("--print-address=" + std::to_string(readyCopy)).c_str(),
                 ("--config-file=" + configuration).c_str(),
                 nullptr);
        ::_exit(127);
    }
}

}  // namespace tvo::bench
