#include <algorithm>
#include <chrono>

#include <component/cert_approver/tvo_ipc/client.h>
#include <component/cert_approver/tvo_ipc/service_names.h>
#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <shared/common/tvo/ipc/proxy/make_proxy.h>
#include <shared/ipc_utils/publish.h>

#include "cert_approver_client.h"

namespace cert_approver::proxy {

namespace {

constexpr std::uint32_t Infinite = 0xFFFFFFFFU;

/// A server that was found in the last moment still gets the time to accept; milliseconds.
constexpr std::uint32_t ShortestConnect = 1000;

/// One limit for several steps.
class Limit
{
public:
    explicit Limit(std::uint32_t timeoutMs) : m_timeoutMs(timeoutMs) {}

    std::uint32_t Remaining() const
    {
        if (m_timeoutMs == Infinite)
        {
            return Infinite;
        }
        const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now() - m_start);
        const auto left = std::max<std::int64_t>(m_timeoutMs - passed.count(), 0);
        return static_cast<std::uint32_t>(left);
    }

private:
    const std::uint32_t m_timeoutMs;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

}  // namespace

std::unique_ptr<ICertApproverClient> CreateCertApproverClient(
    std::uint32_t timeoutMs,
    const tvoipc::api_v1::ApplicationSettings& settings)
{
    using tvoipc::api_v1::ConnectionBuilder;
    using tvoipc::api_v1::ConnectViaDynamicChannel;

    const Limit limit(timeoutMs);
    const auto target = ::shared::ipc_utils::FindConnectionTargetForType(
        service_names::PublishedInterface, timeoutMs);
    ZIN_CHECK(target.has_value(),
              "Connection target for CertApprover not found. Interface: "
                  << service_names::PublishedInterface);
    const char* server = target->first.data();
    const char* service = target->second.data();
    TVO_LOG_DEBUG(
        "Connection target for CertApprover is: server = {}, service = {}", server, service);
    const auto provider = std::make_shared<tvoipc_detail::api_v1::ResourceProvider>(settings);
    ConnectionBuilder<ConnectViaDynamicChannel> builder(server, service);
    builder.SetTimeout(std::max(limit.Remaining(), ShortestConnect));
    return std::make_unique<CertApproverClient>(
        tvoipc::MakeProxy<CertApproverClient::Generated>(provider, builder));
}

}  // namespace cert_approver::proxy
