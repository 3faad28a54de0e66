// Keeps the soak's callers: a process without threads that forks one for each order. It is their
// parent, so a kill never hits another process that got the number of one that has gone.

#include <algorithm>
#include <clocale>
#include <csignal>
#include <exception>
#include <map>
#include <stdexcept>

#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <component/cert_approver/tvo_ipc/client.h>
#include <component/logger/logger.h>

#include "address.h"
#include "caller_messages.h"

namespace soak {

namespace {

using cert_approver::Verdict;

constexpr int Driver = STDIN_FILENO;
/// A caller may be started before the service is.
constexpr std::uint32_t ServiceLimitMs = 30'000;

void Tell(Event event, std::uint32_t number)
{
    const Report report{event, number};
    if (send(Driver, &report, sizeof(report), MSG_NOSIGNAL) != sizeof(report))
    {
        _exit(1);
    }
}

void Ask(std::uint32_t number)
{
    const auto client = cert_approver::proxy::CreateCertApproverClient(ServiceLimitMs);
    Tell(Event::Connected, number);
    certs::cert_service::CertData certificate;
    certificate.address = AddressOf(number);
    auto verdict = Verdict::Close;
    client->ApproveCert(certificate, verdict);
    Tell(verdict == Verdict::Approve ? Event::Approved : Event::Closed, number);
}

[[noreturn]] void RunCaller(std::uint32_t number)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    try
    {
        Ask(number);
    }
    catch (const std::exception&)
    {
        Tell(Event::Failed, number);
    }
    _exit(0);
}

class Callers final
{
public:
    void Obey(const OrderPacket& packet)
    {
        if (packet.order == Order::Start)
        {
            Start(packet.number);
            return;
        }
        const auto caller =
            std::ranges::find(m_numbers, packet.number, [](const auto& one) { return one.second; });
        if (caller != m_numbers.end())
        {
            kill(caller->first, SIGKILL);
        }
    }

    void Collect()
    {
        int status = 0;
        for (pid_t id = waitpid(-1, &status, WNOHANG); id > 0; id = waitpid(-1, &status, WNOHANG))
        {
            const bool killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
            const Event event = killed        ? Event::Killed
                                : status == 0 ? Event::Ended
                                              : Event::Crashed;
            Tell(event, m_numbers.at(id));
            m_numbers.erase(id);
        }
    }

private:
    void Start(std::uint32_t number)
    {
        const pid_t id = fork();
        if (id == 0)
        {
            RunCaller(number);
        }
        if (id < 0)
        {
            throw std::runtime_error("Cannot fork a caller");
        }
        m_numbers[id] = number;
    }

    std::map<pid_t, std::uint32_t> m_numbers;
};

/// Runs until the driver has gone; the callers then go with their parent.
void Serve()
{
    sigset_t childEnds;
    sigemptyset(&childEnds);
    sigaddset(&childEnds, SIGCHLD);
    sigprocmask(SIG_BLOCK, &childEnds, nullptr);
    pollfd ends[] = {{Driver, POLLIN, 0}, {signalfd(-1, &childEnds, SFD_CLOEXEC), POLLIN, 0}};
    Callers callers;
    while (poll(ends, std::size(ends), -1) > 0)
    {
        OrderPacket packet;
        signalfd_siginfo ended;
        if (ends[0].revents != 0)
        {
            if (recv(Driver, &packet, sizeof(packet), 0) != sizeof(packet))
            {
                return;
            }
            callers.Obey(packet);
        }
        if (ends[1].revents != 0 && read(ends[1].fd, &ended, sizeof(ended)) == sizeof(ended))
        {
            callers.Collect();
        }
    }
}

}  // namespace

}  // namespace soak

int main()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::setlocale(LC_CTYPE, "C.UTF-8");
    tvo::logger::TVOLogger::Setup("SOAK", tvo::logger::LogLevel::Off, nullptr);
    try
    {
        soak::Serve();
    }
    catch (const std::exception&)
    {
        return 1;
    }
    return 0;
}
