// The service and a client over the operating system's own transport, in one process.

#include <cstdlib>
#include <filesystem>
#include <vector>

#include <gtest/gtest.h>

#include <component/cert_approver/tvo_ipc/cert_approver_dispatcher.h>
#include <component/cert_approver/tvo_ipc/cert_approver_stub.h>
#include <component/cert_approver/tvo_ipc/client.h>
#include <component/cert_approver/tvo_ipc/service_names.h>
#include <shared/common/tvo/ipc/connection_manager.h>
#include <shared/ipc_utils/publish.h>
#include <tvo/service_locator.h>
#include <tvo/task.h>

#include "allocation_counter.h"
#include "fake_cert_approver.h"

namespace {

using namespace cert_approver;
using certs::cert_service::CertData;
using tvo::ipc::ConnectionManager;

using Dispatcher = stub::CertApproverDispatcher;

class RoundTrip : public ::testing::Test
{
protected:
    /// The platform opens the folder once, and a process publishes once.
    static void SetUpTestSuite()
    {
        char folder[] = "/tmp/tvo-round-trip-XXXXXX";
        ASSERT_NE(::mkdtemp(folder), nullptr);
        ::setenv("TVO_RUNTIME_DIR", folder, 1);
        const TvoEndpointDescription endpoint{service_names::Riid,
                                              service_names::Endpoint,
                                              service_names::EndpointShortName,
                                              service_names::EndpointInterface};
        const TvoComponentDescription component{
            service_names::Component, service_names::ComponentType, &endpoint, 1};
        const TvoComponentTree tree{service_names::Entity, nullptr, 0, &component, 1};
        const std::uint32_t self = TvoTaskGetSelf();
        ASSERT_EQ(TvoTaskSetComponentTree(self, &tree), 0);
        ASSERT_EQ(TvoTaskConnectToService(self, self, service_names::ConnectionId), 0);
        ASSERT_TRUE(::shared::ipc_utils::TryPublishService(service_names::PublishedInterface,
                                                           service_names::ConnectionId));
    }

    static void TearDownTestSuite()
    {
        std::filesystem::remove_all(std::getenv("TVO_RUNTIME_DIR"));
    }

    RoundTrip()
    {
        EXPECT_EQ(dispatcher.Start(), 0);
    }

    ~RoundTrip() override
    {
        dispatcher.Stop();
        ServiceLocatorUnregister(registration);
    }

    std::shared_ptr<cert_approver::testing::FakeCertApprover> approver =
        std::make_shared<cert_approver::testing::FakeCertApprover>();
    stub::CertApproverComponent component{approver};
    std::uint64_t registration = 0;
    std::uint32_t endpoint =
        ServiceLocatorRegister(service_names::ConnectionId, nullptr, 0, &registration);
    Dispatcher dispatcher{service_names::Riid, endpoint, 50, component.GetComponent()};
    ConnectionManager manager{{{service_names::ConnectionId, {service_names::Riid, 1}}},
                              {{1, endpoint}},
                              {},
                              {},
                              {},
                              50,
                              false,
                              true};
    std::unique_ptr<proxy::ICertApproverClient> client = proxy::CreateCertApproverClient(10'000);
};

TEST_F(RoundTrip, LargestCertificateArrivesWholeAndTheVerdictReturns)
{
    const CertData cert{std::string(256, 'i'),
                        std::string(256, 's'),
                        -1,
                        INT64_MAX,
                        std::string(128, '\0'),
                        std::string(256, 'a')};
    approver->answer = [&](const CertData& asked, Verdict& verdict)
    {
        verdict = asked == cert ? Verdict::Approve : Verdict::Close;
        return 0;
    };
    approver->result = std::string(128, 't');
    std::string result;
    Verdict verdict = Verdict::Close;
    client->ApproveZrcCert(cert, Mode::Mode1, verdict, result);
    EXPECT_EQ(verdict, Verdict::Approve);
    EXPECT_EQ(result, approver->result);
    client->ApproveCert({}, verdict);
    EXPECT_EQ(verdict, Verdict::Close);
}

TEST_F(RoundTrip, NothingIsAllocatedPerRequest)
{
    std::vector<std::size_t> counts;
    counts.reserve(20);
    approver->answer = [&](const CertData&, Verdict&)
    {
        counts.push_back(platform::tests::AllocationsOfThisThread());
        return 0;
    };
    for (int i = 0; i < 20; ++i)
    {
        Verdict verdict{};
        // Short texts fit into the strings of the record themselves.
        client->ApproveCert({"issuer", "subject", 0, 0, "fingerprint", "address"}, verdict);
    }
    EXPECT_GE(counts.front(), 2U) << "the arenas";
    EXPECT_EQ(counts.back(), counts.front());
}

}  // namespace
