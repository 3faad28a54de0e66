#include <chrono>
#include <future>
#include <stdexcept>
#include <thread>

#include <component/cert_approver/tvo_ipc/client.h>
#include <component/plk/exceptions.h>
#include <support/manager_process.h>

#include "runtime_folder.h"
#include "window_rows.h"
#include "window_stage.h"

namespace tvo::bench {
namespace {

using Client = cert_approver::proxy::ICertApproverClient;
using cert_approver::Verdict;

constexpr std::uint32_t ConnectTimeout = 10'000;
constexpr std::uint32_t LookOnce = 0;

/// What the peers show as constants.
const certs::cert_service::CertData Certificate{"CN=Vantelore Test Authority,O=Vantelore,C=US",
                                                "CN=desktop.example.net,O=Vantelore,C=US",
                                                1'700'000'000'000'000,
                                                1'800'000'000'000'000,
                                                "SHA-256 5F:0C:3B:9A:D4:77:21:E8",
                                                "desktop.example.net:3389"};

std::future<Verdict> Ask(Client& client)
{
    return std::async(std::launch::async,
                      [&client]
                      {
                          Verdict verdict = Verdict::Approve;
                          client.ApproveCert(Certificate, verdict);
                          return verdict;
                      });
}

/// Connects to a service that is about to come.
std::unique_ptr<Client> ConnectAsSoonAsPossible()
{
    constexpr auto Pause = std::chrono::milliseconds(1);
    const auto deadline = std::chrono::steady_clock::now() + support::Patience;
    for (;;)
    {
        try
        {
            return cert_approver::proxy::CreateCertApproverClient(LookOnce);
        }
        catch (const zin::CheckFailedException&)
        {
            if (std::chrono::steady_clock::now() > deadline)
            {
                throw;
            }
        }
        std::this_thread::sleep_for(Pause);
    }
}

void RefuseAndWait(WindowStage& stage, std::future<Verdict>& answer)
{
    stage.Refuse();
    if (answer.get() != Verdict::Close)
    {
        throw std::runtime_error("a refusal has arrived as something else");
    }
}

class Requests final : public Contender
{
public:
    Requests()
    {
        m_stage.Start(TVO_BENCH_CERT_APPROVER);
        m_client = cert_approver::proxy::CreateCertApproverClient(ConnectTimeout);
        m_stage.WaitForRest();
    }

    void Run(int /*count*/) override
    {
        m_answer = Ask(*m_client);
        m_stage.WaitForDialog();
    }

    void Rest() override
    {
        m_stage.WaitForRest();
        RefuseAndWait(m_stage, m_answer);
        m_stage.WaitForNoWindow();
        m_stage.WaitForRest();
    }

private:
    // Without applications: what runs beside it is let be.
    support::ManagerProcess m_manager{RuntimeFolderPath(), "en-US"};
    std::unique_ptr<Client> m_client;
    std::future<Verdict> m_answer;
    // Goes first: a call that is still waiting ends with the application.
    WindowStage m_stage;
};

class ApplicationStarts final : public Contender
{
public:
    void Run(int /*count*/) override
    {
        m_stage.Start(TVO_BENCH_CERT_APPROVER);
        m_client = ConnectAsSoonAsPossible();
        m_answer = Ask(*m_client);
        m_stage.WaitForDialog();
    }

    void Rest() override
    {
        RefuseAndWait(m_stage, m_answer);
        m_client.reset();
        m_stage.Clear();
    }

private:
    // Without applications: what runs beside it is let be.
    support::ManagerProcess m_manager{RuntimeFolderPath(), "en-US"};
    std::unique_ptr<Client> m_client;
    std::future<Verdict> m_answer;
    // Goes first: a call that is still waiting ends with the application.
    WindowStage m_stage;
};

}  // namespace

std::unique_ptr<Contender> MakeRequests()
{
    return std::make_unique<Requests>();
}

std::unique_ptr<Contender> MakeApplicationStarts()
{
    return std::make_unique<ApplicationStarts>();
}

}  // namespace tvo::bench
