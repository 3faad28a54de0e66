#include "run_cert_approver.h"

#include <future>
#include <string>
#include <utility>

#include <QCoreApplication>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/cert_approver/tvo_ipc/client.h>
#include <component/plk/result_codes.h>
#include <platform/testing/platform_double.h>
#include <shared/common_utils/testing/fake_settings_manager.h>
#include <tvo/service_locator.h>
#include <xo/handle.h>

namespace cert_approver {
namespace {

using platform::testing::Call;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct Outcome
{
    int status;
    std::string log;
};

int MakeSettings(std::shared_ptr<settings_manager::ISettingsManager>& manager)
{
    manager = std::make_shared<settings_manager::testing::FakeSettingsManager>();
    return 0;
}

Outcome RunOnce(SettingsManagerCreator createSettingsManager = &MakeSettings)
{
    char name[] = "cert_approver";
    char* arguments[] = {name, nullptr};
    ::testing::internal::CaptureStderr();
    const int status = RunCertApprover(1, arguments, createSettingsManager);
    return {status, ::testing::internal::GetCapturedStderr()};
}

void ExitFromAnotherThread(int status)
{
    QMetaObject::invokeMethod(QCoreApplication::instance(),
                              [status] { QCoreApplication::exit(status); });
}

struct RunCertApproverTest : ::testing::Test
{
    platform::testing::PlatformDouble platform;
};

TEST_F(RunCertApproverTest, RefusesTheCallerWhoStillWaitsWhenTheEventLoopEnds)
{
    static bool published = false;
    if (std::exchange(published, true))
    {
        platform.Return(Call::TaskSetComponentTree, {.code = XoOk});
    }
    auto verdict = Verdict::Approve;
    const auto caller =
        std::async(std::launch::async,
                   [&]
                   {
                       const auto client = proxy::CreateCertApproverClient(60000);
                       client->ApproveCert(certs::cert_service::CertData(), verdict);
                   });
    const auto end = std::async(std::launch::async,
                                [this]
                                {
                                    platform.WaitUntilReturned(Call::TransportReceive, XoOk);
                                    ExitFromAnotherThread(5);
                                });
    const auto outcome = RunOnce();
    caller.wait();

    EXPECT_EQ(verdict, Verdict::Close);
    EXPECT_EQ(outcome.status, 5);
    EXPECT_THAT(outcome.log, HasSubstr("[main] CertApprover stopped with code 5"));
    EXPECT_EQ(platform.Journal(Call::FindTarget).at(0).arguments,
              "\"vx.cert_approver.CertApprover.CertApprover\", 60000");
    EXPECT_THAT(platform.Journal(Call::CmConnect).at(0).arguments,
                StartsWith("\"vx.vdi.CertApprover\", \"cert_approver_id\", "));
    EXPECT_EQ(ServiceLocatorConnect("cert_approver_id"), XoInvalidHandle) << "given back";
}

TEST_F(RunCertApproverTest, AFailedStageEndsTheProcessWithItsText)
{
    struct Row
    {
        Call call;
        const char* text;
    };
    const Row rows[] = {
        {Call::TaskSetComponentTree, "entity: can not set up component tree-7: 0xfffffff9"},
        {Call::TaskConnectToService, "entity: can not connect to themself, rc=0x-7: 0xfffffff9"},
        {Call::LocatorRegister, "Cannot register service cert_approver_id"},
        {Call::PublishService,
         "Failed to publish service 'cert_approver_id' with interface "
         "'vx.cert_approver.CertApprover.CertApprover'"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.text);
        platform.Return(row.call, {.code = -7});
        // The tree is fixed once this process has published.
        platform.Return(Call::TaskSetComponentTree, {.code = XoOk});
        const auto outcome = RunOnce();
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.log, HasSubstr("[main] CertApprover start with error: "));
        EXPECT_THAT(outcome.log, HasSubstr(row.text));
        EXPECT_EQ(ServiceLocatorConnect("cert_approver_id"), XoInvalidHandle) << "given back";
    }
}

TEST_F(RunCertApproverTest, WithoutSettingsEndsWithTheirCode)
{
    const auto outcome = RunOnce([](auto&) { return plk::codes::MediaError; });
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.log,
                HasSubstr("[main] CertApprover start with error: Media error = 0x80000059"));
    EXPECT_THAT(outcome.log, HasSubstr("Failed to create persistent settings manager"));
}

}  // namespace
}  // namespace cert_approver
