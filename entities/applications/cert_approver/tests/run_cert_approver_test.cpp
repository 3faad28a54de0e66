#include "run_cert_approver.h"

#include <cstdlib>
#include <future>
#include <iostream>
#include <optional>

#include <QCoreApplication>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/app_manager/create_application_manager.h>
#include <component/app_manager/testing/fake_app_manager.h>
#include <component/cert_approver/tvo_ipc/client.h>
#include <component/plk/result_codes.h>
#include <platform/testing/platform_double.h>
#include <shared/common_utils/testing/fake_settings_manager.h>
#include <tvo/service_locator.h>
#include <xo/handle.h>

// Q_CLEANUP_RESOURCE names a function of the global namespace.
static void LoseDocuments()
{
    Q_CLEANUP_RESOURCE(cert_approver_qml);
}

namespace cert_approver {
namespace {

using namespace app_manager;
using app_manager::testing::FakeAppManager;
using platform::testing::Call;
using platform::testing::PlatformDouble;
using ::testing::ExitedWithCode;
using ::testing::NiceMock;
using ::testing::Return;
using Manager = std::shared_ptr<IApplicationManager>;
using Settings = std::shared_ptr<settings_manager::ISettingsManager>;

// clang-format off
struct MockManager : IApplicationManager
{
    MOCK_METHOD(std::shared_ptr<IApplicationController>, GetApplicationController, (), (override));
    MOCK_METHOD(std::shared_ptr<IApplicationCommands>, GetApplicationCommands, (), (override));
    MOCK_METHOD(std::shared_ptr<IApplicationWatchdog>, GetApplicationWatchdog, (), (override));
};

struct NoComponent : stub::ICertApproverComponent
{
    std::shared_ptr<vx_cert_approver_CertApprover_component> GetComponent() override { return {}; }
    static std::unique_ptr<ICertApproverComponent> Make(std::shared_ptr<ICertApprover>)
    {
        return std::make_unique<NoComponent>();
    }
};
// clang-format on

int MakeSettings(Settings& made)
{
    made = std::make_shared<settings_manager::testing::FakeSettingsManager>();
    return 0;
}

/// Set when the program is to have a caller before it gets its commands.
const PlatformDouble* g_callerOf = nullptr;

/// Takes reports and has no commands.
Manager MakePartOfManager(std::string_view name)
{
    const auto all = CreateApplicationManager(name);
    const auto part = std::make_shared<NiceMock<MockManager>>();
    const auto noCommands = []
    {
        if (g_callerOf != nullptr)
        {
            g_callerOf->WaitUntilReturned(Call::TransportReceive, XoOk);
        }
        return nullptr;
    };
    ON_CALL(*part, GetApplicationController).WillByDefault(Return(all->GetApplicationController()));
    ON_CALL(*part, GetApplicationWatchdog).WillByDefault(Return(all->GetApplicationWatchdog()));
    ON_CALL(*part, GetApplicationCommands).WillByDefault(noCommands);
    return part;
}

constexpr Creators Real{&CreateApplicationManager,
                        &MakeSettings,
                        &stub::CreateCertApproverComponent};

int RunProgram(const Creators& creators)
{
    char name[] = "cert_approver";
    char* arguments[] = {name, nullptr};
    return RunCertApprover(1, arguments, creators);
}

/// Writes behind the log what the manager has heard but for the pings.
void TellWhatWasHeard(FakeAppManager& manager)
{
    std::cerr << "heard:";
    for (const auto& call : manager.Calls())
    {
        std::cerr << (call.starts_with("Ping") ? "" : " " + call + ";");
    }
    const bool isFree = ServiceLocatorConnect("cert_approver_id") == XoInvalidHandle;
    std::cerr << (isFree ? " given back\n" : " still registered\n");
}

TEST(RunCertApprover, TellsTheLogAndTheManagerWhichStageHasFailed)
{
    struct Row
    {
        std::optional<Call> fails;
        Creators creators;
        bool isHeard;
        const char* text;
        std::string code = "Unspecified error = 0x8000004b";
    };
    auto noReports = Real, noCommands = Real, badCode = Real, noSettings = Real, noWindow = Real,
         noComponent = Real;
    noReports.createApplicationManager = [](auto) -> Manager
    {
        return std::make_shared<NiceMock<MockManager>>();
    };
    noCommands.createApplicationManager = &MakePartOfManager;
    badCode.createSettingsManager = [](Settings&)
    {
        return plk::codes::MediaError;
    };
    noSettings.createSettingsManager = [](Settings&)
    {
        return 0;
    };
    noWindow.createSettingsManager = [](Settings& made)
    {
        LoseDocuments();
        return MakeSettings(made);
    };
    noComponent.createComponent = &NoComponent::Make;
    // clang-format off
    const Row rows[] = {
        {Call::FindTarget, Real, false, "App manager in null"},
        {{}, noReports, false, "Application controller is nullptr"},
        {{}, badCode, true, "Failed to create persistent settings manager: 0x80000059",
         "Media error = 0x80000059"},
        {{}, noSettings, true, "PersistentSettingsManager is null"},
        {{}, noWindow, true, "IWindowPtr is null"},
        {Call::TaskSetComponentTree, Real, true,
         "entity: can not set up component tree-7: 0xfffffff9", "Unknown result code = 0xfffffff9"},
        {Call::TaskConnectToService, Real, true,
         "entity: can not connect to themself, rc=0x-7: 0xfffffff9",
         "Unknown result code = 0xfffffff9"},
        {Call::LocatorRegister, Real, true, "Cannot register service cert_approver_id"},
        {{}, noComponent, true, "tvo/entity/component_dispatcher.h"},
        {Call::PublishService, Real, true, "Failed to publish service 'cert_approver_id' with "
         "interface 'vx.cert_approver.CertApprover.CertApprover'"},
        {{}, noCommands, true, "AppCommands is not initialized!"},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.text);
        const auto run = [&]
        {
            FakeAppManager manager;
            PlatformDouble platform;
            if (row.fails.has_value())
            {
                platform.Return(*row.fails, {.code = -7});
            }
            const int status = RunProgram(row.creators);
            TellWhatWasHeard(manager);
            return status;
        };
        const std::string first = "Failed to start cert_approver";
        const auto second = first + ": " + row.code;
        auto log =
            R"(\[main] CertApprover start with error: )" + row.code + " with result: .*" + row.text;
        log += !row.isHeard ? ".*heard: given back"
                            : ".*App cert_approver crashed with error: " + first + " - " + second +
                                  ".*heard: (GetUpdateHandle cert_approver; )?ReadyToInitialize "
                                  "cert_approver; FinishWithInternalError cert_approver " +
                                  first + " " + second + "; given back";
        EXPECT_EXIT(std::exit(run()), ExitedWithCode(1), log);
    }
}

/// @param end  ends the program once its caller waits
int RunWithCaller(const Creators& creators, void (*end)(FakeAppManager&))
{
    qputenv("TVO_LOG_LEVEL", "trace");
    FakeAppManager manager;
    PlatformDouble platform;
    g_callerOf = &platform;
    auto verdict = Verdict::Approve;
    const auto ask = [&]
    {
        platform.WaitUntilReturned(Call::PublishService, 1);
        proxy::CreateCertApproverClient(60000)->ApproveCert({}, verdict);
    };
    const auto endIt = [&]
    {
        platform.WaitUntilReturned(Call::TransportReceive, XoOk);
        end(manager);
    };
    const auto caller = std::async(std::launch::async, ask);
    const auto ending = std::async(std::launch::async, endIt);
    const int status = RunProgram(creators);
    caller.wait();
    ending.wait();
    TellWhatWasHeard(manager);
    std::cerr << "verdict " << static_cast<int>(verdict) << '\n';
    return status;
}

TEST(RunCertApprover, GoesThroughItsStagesAndRefusesWhoStillWaits)
{
    const auto byCommand = [](FakeAppManager& manager)
    {
        EXPECT_TRUE(manager.WaitForCall("Ping cert_approver"));
        manager.SetCommand(-3);
    };
    const auto byItself = [](FakeAppManager& manager)
    {
        EXPECT_TRUE(manager.WaitForCall("Ping cert_approver"));
        QMetaObject::invokeMethod(QCoreApplication::instance(), [] { QCoreApplication::exit(5); });
    };
    const std::string before =
        R"(\[main] CertApprover is starting\.\.\..*\[main] QGuiApplication is created.*)"
        R"(\[main] cert_approver::OsApplication is created.*)"
        R"(\[main] cert_approver::OsApplication translation installed.*)"
        R"(\[main] cert_approver::OsApplication created window factory.*)"
        R"(\[main] cert_approver::ui::WindowFactory is created window.*)"
        R"(entity: Execution Manager stub created. ConnId: cert_approver_id.*)"
        R"(\[main] Show CertApprover window.*\[main] CertApprover is ready.*)"
        R"(\[main] CertApprover stopped with code )";
    const std::string after =
        ".*heard: GetUpdateHandle cert_approver; ReadyToInitialize cert_approver; ReadyToShowUI "
        "cert_approver;( GetCommand cert_approver;)? StateChanged cert_approver -2; given back.*"
        "verdict 0";
    EXPECT_EXIT(std::exit(RunWithCaller(Real, byCommand)), ExitedWithCode(0), before + "0" + after);
    EXPECT_EXIT(std::exit(RunWithCaller(Real, byItself)), ExitedWithCode(5), before + "5" + after);
    const Creators noCommands{&MakePartOfManager, Real.createSettingsManager, Real.createComponent};
    EXPECT_EXIT(std::exit(RunWithCaller(noCommands, [](auto&) {})),
                ExitedWithCode(1),
                "AppCommands is not initialized!.*FinishWithInternalError.*given back.*verdict 0");
}

}  // namespace
}  // namespace cert_approver
