#include <unistd.h>

#include <component/cert_approver/tvo_ipc/cert_approver_dispatcher.h>
#include <component/cert_approver/tvo_ipc/cert_approver_stub.h>
#include <component/cert_approver/tvo_ipc/client.h>
#include <component/cert_approver/tvo_ipc/service_names.h>
#include <component/logger/logger.h>

#include "business/cert_approver_cert_data_interactor.h"
#include "business/cert_approver_request_handler.h"
#include "business/cert_approver_verdict_interactor.h"
#include "create_ipc_connection_manager.h"
#include "publish_entity.h"
#include "server_process.h"
#include "service_registration.h"
#include "sizes.h"
#include "terminal_calls.h"

namespace tvo::bench {
namespace {

using namespace cert_approver;

constexpr std::uint32_t ReceiveTimeout = 500;
constexpr std::uint32_t ConnectTimeout = 10'000;

/// Where a person would be: approves as soon as there is something to see.
class AnsweringWindow final : public windows::components::IWindow
{
public:
    explicit AnsweringWindow(std::shared_ptr<interactors::ICertApproverVerdictSetter> verdicts)
        : m_verdicts(std::move(verdicts))
    {}

    void Show() override
    {
        m_verdicts->SetUserVerdict(Verdict::Approve);
    }

    bool IsVisible() const override
    {
        return false;
    }

    void Hide() override {}
    void Close() override {}
    void Resize(int /*width*/, int /*height*/) override {}

private:
    const std::shared_ptr<interactors::ICertApproverVerdictSetter> m_verdicts;
};

/// Texts of everyday length, together nearly as long as the small call's arena.
certs::cert_service::CertData EverydayCertificate()
{
    return {"CN=Vantelore Test Authority,OU=Terminals,O=Vantelore,L=Springfield,C=US",
            "CN=desktop.example.net,OU=Remote Desktops,O=Vantelore,L=Springfield,C=US",
            1'700'000'000'000'000,
            1'800'000'000'000'000,
            "SHA-256 " + std::string(95, 'f'),
            "desktop.example.net:3389"};
}

class Approvals final : public Contender
{
public:
    void Run(int count) override
    {
        for (int i = 0; i < count; ++i)
        {
            Verdict verdict = Verdict::Close;
            m_client->ApproveCert(m_certificate, verdict);
            if (verdict != Verdict::Approve)
            {
                throw std::runtime_error("an approval was refused");
            }
        }
    }

private:
    const ServerProcess m_server{{"approvals"}};
    const std::unique_ptr<proxy::ICertApproverClient> m_client =
        proxy::CreateCertApproverClient(ConnectTimeout);
    const certs::cert_service::CertData m_certificate = EverydayCertificate();
};

}  // namespace

std::unique_ptr<Contender> MakeApprovals()
{
    return std::make_unique<Approvals>();
}

void ServeApprovals(const std::vector<std::string>& /*arguments*/)
{
    ::tvo::logger::TVOLogger::Setup("BENCH", ::tvo::logger::LogLevel::Warning, nullptr);
    const auto certData = std::make_shared<interactors::CertApproverCertDataInteractor>();
    const auto verdicts = std::make_shared<interactors::CertApproverVerdictInteractor>();
    stub::CertApproverComponent component(std::make_shared<CertApproverRequestHandler>(
        certData, verdicts, std::make_shared<AnsweringWindow>(verdicts)));
    PublishEntity();
    const ServiceRegistration registration(service_names::ConnectionId);
    stub::CertApproverDispatcher dispatcher(
        service_names::Riid, registration.Handle(), ReceiveTimeout, component.GetComponent());
    const auto manager = CreateIpcConnectionManager(service_names::PublishedInterface,
                                                    service_names::ConnectionId,
                                                    service_names::Riid,
                                                    registration.Handle());
    dispatcher.Start();
    manager->Start();
    ReportReady();
    for (;;)
    {
        ::pause();
    }
}

}  // namespace tvo::bench
