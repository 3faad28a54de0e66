#include <cstring>

#include <gmock/gmock.h>

#include <component/app_manager/create_application_manager.h>
#include <component/app_manager/create_application_status.h>
#include <component/app_manager/testing/fake_app_manager.h>
#include <component/app_manager/tvo_ipc/service_names.h>
#include <component/logger/testing/recording_logger.h>
#include <component/plk/result_codes.h>
#include <platform/testing/platform_double.h>

namespace app_manager {
namespace {

using platform::testing::Call;
using testing::FakeAppManager;
using testing::Order;
using tvo::logger::testing::RecordingLogger;

const std::string Name(128, 'n');
const std::string Error(128, 'e');
const std::string Description(128, 'd');

/// Takes down what goes over the wire, without the help of the records: method, request's size,
/// response's size word, the eight bytes behind the name, arena. Answers 7, or the command -3.
class AppManagerProxy : public ::testing::Test
{
protected:
    AppManagerProxy()
    {
        platform.Serve(5,
                       [this](auto, auto* request, auto* in, auto* response, auto)
                       { return Serve(*request, *in, *response); });
        manager = CreateApplicationManager("app");
        status = CreateApplicationStatusSPtr(Name, manager->GetApplicationController());
    }

    int Serve(const wz_message& request, const wz_arena& in, wz_message& response)
    {
        const auto* fields = reinterpret_cast<const std::uint64_t*>(&request + 1);
        lines.push_back(fmt::format("{} {} {:x} {:x} {}",
                                    request.mid,
                                    request.size,
                                    response.size,
                                    request.size > 32 ? fields[1] : 0,
                                    std::string(in.start, in.current)));
        const std::uint32_t result = response.size == 32 ? 7 : response.size == 40 ? -3U : 0xFFFFFF;
        const auto answer = static_cast<std::int64_t>(static_cast<std::int32_t>(result));
        std::memcpy(&response + 1, &answer, sizeof(answer));
        response.size |= failed;
        return transport;
    }

    int transport = 0;
    std::uint32_t failed = 0;
    std::vector<std::string> lines;
    platform::testing::PlatformDouble platform;
    RecordingLogger logger;
    std::shared_ptr<IApplicationManager> manager;
    std::shared_ptr<IApplicationStatus> status;
};

TEST_F(AppManagerProxy, MethodsHaveTheirNumbersSizesAndTexts)
{
    EXPECT_EQ(manager->GetApplicationController()->StartApplication(""), 7);
    EXPECT_EQ(status->ReadyToInitialize(), 7);
    EXPECT_EQ(status->ReadyToShowUI(), 7);
    EXPECT_EQ(status->FinishWithInternalError(Error, Description), 7);
    EXPECT_EQ(status->ReadyToShutdown(), 7);
    long command = 0;
    EXPECT_EQ(manager->GetApplicationCommands()->GetCommand("app", command), 0);
    EXPECT_EQ(command, -3);
    EXPECT_EQ(manager->GetApplicationWatchdog()->Ping("app"), 7);
    EXPECT_THAT(lines,
                ::testing::ElementsAre("0 32 800028 0 app",
                                       "0 32 20 0 ",
                                       "1 32 20 0 " + Name,
                                       "2 32 20 0 " + Name,
                                       "3 48 20 8000000080 " + Name + Error + Description,
                                       "4 40 20 fffffffffffffffe " + Name,
                                       "1 32 28 0 app",
                                       "0 32 20 0 app"));
}

TEST_F(AppManagerProxy, FailedReportsAreLoggedAndAnswered)
{
    const struct
    {
        std::string method;
        std::string called;  ///< according to the log
        std::function<int(std::string_view)> report;
    } rows[] = {
    // clang-format off
#define REPORT(method, called, ...) {#method, #called, [this](auto app)\
    { return manager->GetApplicationController()->method(app __VA_OPT__(,) __VA_ARGS__); }}
        REPORT(StartApplication, StartApplication),
        REPORT(ReadyToInitialize, ReadyToInitialize),
        REPORT(ReadyToShowUI, FinishWithInternalError),
        REPORT(FinishWithInternalError, FinishWithInternalError, "", ""),
        REPORT(StateChanged, StateChanged, 1),
#undef REPORT
        // clang-format on
    };
    for (const auto& [method, called, report] : rows)
    {
        const auto expect = [&, &method = method, &called = called](int result, int code, auto what)
        {
            const auto line = logger.Lines().back();
            EXPECT_EQ(result, code);
            EXPECT_EQ(line.function, method);
            EXPECT_EQ(line.message, "Failed to call " + called + ", " + what);
        };
        const auto text = "std::exception: vx_app_manager_ApplicationController_" + method;
        const std::string unspecified = " error with result: Unspecified error = 0x8000004b";
        transport = XoBroken;
        expect(report(Name), plk::codes::UnspecifiedError, text + " transport" + unspecified);
        transport = 0;
        failed = WzMessageFailedBit;
        expect(report(Name), plk::codes::UnspecifiedError, text + " server" + unspecified);
        const auto calls = lines.size();
        expect(report(Name + "n"),
               plk::codes::InvalidSize,
               std::string("? with result: Invalid size = 0x8000005c"));
        EXPECT_EQ(lines.size(), calls) << "no call is made";
    }
}

TEST(AppManager, RefusedThirdServiceLeavesNothingOpen)
{
    FakeAppManager fake(service_names::Watchdog);
    const platform::testing::PlatformDouble platform;
    const RecordingLogger logger;
    EXPECT_EQ(CreateApplicationManager("app"), nullptr);
    EXPECT_EQ(platform.Count(Call::HandleClose), 2U);
    EXPECT_TRUE(fake.Calls().empty());
    EXPECT_EQ(logger.Lines().back().message,
              "Cannot create application manager proxy, std::exception: tvoipc::MakeProxy(): error "
              "connecting to endpoint. with result: -2147483573");
}

TEST(AppManager, ThatIsGoneEndsTheProcess)
{
    FakeAppManager fake;
    fake.Do({Order::Answer, 1, "GetUpdateHandle"});  // no second thread where a test forks
    const auto manager = CreateApplicationManager("app");
    long command = 0;
    EXPECT_EQ(manager->GetApplicationWatchdog()->Ping("app"), 0);
    fake.Do({Order::Refuse, 0, "Ping"});
    EXPECT_DEATH(manager->GetApplicationWatchdog()->Ping("app"), "_Ping server error");
    fake.Die();
    EXPECT_DEATH(manager->GetApplicationWatchdog()->Ping("app"), "_Ping transport error");
    EXPECT_DEATH(manager->GetApplicationCommands()->GetCommand("app", command),
                 "_GetCommand transport error");
}

}  // namespace
}  // namespace app_manager
