#include "service.h"

#include <cstdint>
#include <memory>
#include <string>

#include <fmt/format.h>

#include <component/cert_approver/tvo_ipc/client.h>
#include <component/logger/formatters.h>
#include <component/logger/logger.h>
#include <component/plk/process_exception.h>
#include <tools/cert_approve/failure.h>

namespace cert_approve {
namespace {

using cert_approver::Verdict;
using cert_approver::proxy::ICertApproverClient;

constexpr std::uint32_t ServiceLimitMs = 5000;

/// The proxy layer's lines, which would otherwise stand on standard error beside the program's own.
class ProxyLogger final : public tvoipc::api_v1::ILogger
{
public:
    void Print(Verbosity /*verbosity*/, tvoipc::api_v1::ILogMessage& message) override
    {
        TVO_LOG_AS(tvo::logger::LogLevel::Error, "Proxy", "{}", message.Text());
    }
};

/// To be called inside a handler.
[[noreturn]] void Fail(const char* text)
{
    const auto result = plk::utils::ProcessException();
    TVO_LOG_ERROR("{}: {}", text, result);
    throw Failure(ExitStatus::ServiceFailed, text);
}

std::unique_ptr<ICertApproverClient> MakeClient()
try
{
    tvoipc::api_v1::ApplicationSettings settings;
    settings.logger = std::make_shared<ProxyLogger>();
    return cert_approver::proxy::CreateCertApproverClient(ServiceLimitMs, settings);
}
catch (...)
{
    Fail("the approval service is not there or takes no connections");
}

}  // namespace

Verdict AskService(const certs::cert_service::CertData& certData)
{
    const std::unique_ptr<ICertApproverClient> client = MakeClient();
    Verdict verdict = Verdict::Close;
    try
    {
        client->ApproveCert(certData, verdict);
    }
    catch (...)
    {
        Fail("the approval service failed before it gave an answer");
    }
    return verdict;
}

}  // namespace cert_approve
