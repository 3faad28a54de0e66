// A caller of the soak: asks once about the address of the number that is its argument, and tells
// what happens on its standard output.

#include <clocale>
#include <csignal>
#include <exception>

#include <sys/prctl.h>
#include <unistd.h>

#include <component/cert_approver/tvo_ipc/client.h>
#include <component/logger/logger.h>

#include "caller_messages.h"

namespace {

using cert_approver::Verdict;
using soak::Event;

/// A caller may be started before the service is.
constexpr std::uint32_t ServiceLimitMs = 30'000;

void Tell(Event event)
{
    if (write(STDOUT_FILENO, &event, 1) != 1)
    {
        _exit(1);
    }
}

void Ask(std::uint32_t number)
{
    const auto client = cert_approver::proxy::CreateCertApproverClient(ServiceLimitMs);
    Tell(Event::Connected);
    certs::cert_service::CertData certificate;
    certificate.address = soak::AddressOf(number);
    auto verdict = Verdict::Close;
    client->ApproveCert(certificate, verdict);
    Tell(verdict == Verdict::Approve ? Event::Approved : Event::Closed);
}

}  // namespace

int main(int argc, char** argv)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::setlocale(LC_CTYPE, "C.UTF-8");
    tvo::logger::TVOLogger::Setup("SOAK", tvo::logger::LogLevel::Off, nullptr);
    try
    {
        Ask(static_cast<std::uint32_t>(std::stoul(argv[argc - 1])));
    }
    catch (const std::exception&)
    {
        Tell(Event::Failed);
    }
    return 0;
}
