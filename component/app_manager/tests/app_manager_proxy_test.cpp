#include <atomic>
#include <cstring>

#include <gmock/gmock.h>

#include <component/app_manager/create_application_manager.h>
#include <component/app_manager/create_application_status.h>
#include <component/app_manager/tvo_ipc/command_values.h>
#include <component/app_manager/tvo_ipc/service_names.h>
#include <component/logger/testing/recording_logger.h>
#include <component/plk/result_codes.h>
#include <platform/testing/platform_double.h>
#include <xo/connection.h>
#include <xo/notice.h>

namespace app_manager {
namespace {

using platform::testing::Call;
using tvo::logger::LogLevel;
constexpr std::uint32_t UpdateHandleRoom = 0x800028;

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
        std::int64_t answer = response.size == 32 ? 7 : given.load();
        if (std::uint32_t waiter = WzNoHandleInMessage; response.size == UpdateHandleRoom)
        {
            hasUpdates ? XoEventCreate(&setter, &waiter) : 0;
            answer = waiter;
        }
        std::memcpy(&response + 1, &answer, sizeof(answer));
        response.size |= failed;
        return transport;
    }

    void ConnectForUpdates()
    {
        hasUpdates = true;
        commands = CreateApplicationManager("app")->GetApplicationCommands();
        subscriber = dynamic_cast<ICommandChangedSubscriber*>(commands.get());
    }

    /// Waits until the update thread has dealt with so many events.
    void WaitForEvents(unsigned count)
    {
        EXPECT_TRUE(platform.WaitUntilCalled(Call::NoticeGetEvent, count + 1));
    }

    void Change(unsigned number)
    {
        XoNoticeSetObjectEvent(setter, update_events::CommandChanged);
        WaitForEvents(number);
    }

    int transport = 0;
    std::atomic<long> given = -3;
    bool hasUpdates = false;
    std::uint32_t setter = 0;
    std::uint32_t failed = 0;
    std::vector<std::string> lines;
    platform::testing::PlatformDouble platform;
    tvo::logger::testing::RecordingLogger logger;
    std::shared_ptr<IApplicationManager> manager;
    std::shared_ptr<IApplicationStatus> status;
    std::shared_ptr<IApplicationCommands> commands;
    ICommandChangedSubscriber* subscriber = nullptr;
    std::atomic<int> updates = 0;
};

using ApplicationCommands = AppManagerProxy;

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
    const auto controller = manager->GetApplicationController();
    const auto expect =
        [&](int result, int code, const std::string& method, const std::string& what)
    {
        const auto line = logger.Lines().back();
        const auto called = method == "ReadyToShowUI" ? "FinishWithInternalError" : method;
        EXPECT_EQ(result, code);
        EXPECT_EQ(line.function, method);
        EXPECT_EQ(line.message, "Failed to call " + called + ", " + what);
    };
    // clang-format off
    const std::pair<const char*, std::function<int(std::string_view)>> rows[] = {
        {"StartApplication", [&](auto app) { return controller->StartApplication(app); }},
        {"ReadyToInitialize", [&](auto app) { return controller->ReadyToInitialize(app); }},
        {"ReadyToShowUI", [&](auto app) { return controller->ReadyToShowUI(app); }},
        {"FinishWithInternalError",
         [&](auto app) { return controller->FinishWithInternalError(app, "", ""); }},
        {"StateChanged", [&](auto app) { return controller->StateChanged(app, 1); }},
    };
    // clang-format on
    for (const auto& [method, report] : rows)
    {
        const auto text =
            std::string("std::exception: vx_app_manager_ApplicationController_") + method;
        const std::string unspecified = " error with result: Unspecified error = 0x8000004b";
        transport = XoBroken;
        expect(
            report(Name), plk::codes::UnspecifiedError, method, text + " transport" + unspecified);
        transport = 0;
        failed = WzMessageFailedBit;
        expect(report(Name), plk::codes::UnspecifiedError, method, text + " server" + unspecified);
        const auto calls = lines.size();
        expect(report(Name + "n"),
               plk::codes::InvalidSize,
               method,
               "? with result: Invalid size = 0x8000005c");
        EXPECT_EQ(lines.size(), calls) << "no call is made";
    }
}

TEST_F(AppManagerProxy, RefusedThirdServiceLeavesNothingOpen)
{
    const auto connect = [](auto, const std::string& service, auto, auto* handle, auto* riid)
    {
        *riid = *handle = 5;
        return service == service_names::Watchdog ? XoObjectGone : XoOk;
    };
    platform.Override<decltype(XoCmConnect)>(Call::CmConnect, connect);
    lines.clear();
    EXPECT_EQ(CreateApplicationManager("app"), nullptr);
    EXPECT_EQ(platform.Count(Call::HandleClose), 2U);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(logger.Lines().back().message,
              "Cannot create application manager proxy, std::exception: tvoipc::MakeProxy(): error "
              "connecting to endpoint. with result: -2147483573");
}

TEST_F(AppManagerProxy, EndsTheProcessWithItsManager)
{
    long command = 0;
    failed = WzMessageFailedBit;
    EXPECT_DEATH(manager->GetApplicationWatchdog()->Ping("app"), "_Ping server error");
    transport = XoBroken;
    EXPECT_DEATH(manager->GetApplicationWatchdog()->Ping("app"), "_Ping transport error");
    EXPECT_DEATH(manager->GetApplicationCommands()->GetCommand("app", command),
                 "_GetCommand transport error");
}

TEST_F(ApplicationCommands, ChangesReachCallbacksUntilTheyAreUnregistered)
{
    ConnectForUpdates();
    const auto callback = [&]
    {
        return updates++ == 0 ? throw std::runtime_error("first") : void();
    };
    EXPECT_EQ(subscriber->RegisterCallback(callback), 1U);
    EXPECT_EQ(subscriber->RegisterCallback(callback), 2U);
    Change(1);
    EXPECT_EQ(updates, 1) << "one that throws stops the others for this event";
    EXPECT_TRUE(logger.Contains(LogLevel::Critical,
                                "Failed to notify callback, std::exception: first with result: "
                                "Unspecified error = 0x8000004b"));
    Change(2);
    EXPECT_EQ(updates, 3);
    subscriber->UnregisterCallback(1);
    long got = 0;
    EXPECT_EQ(subscriber->RegisterCallback([&] { commands->GetCommand("app", got); }), 3U)
        << "no id comes back";
    subscriber->UnregisterCallback(1);
    EXPECT_EQ(logger.Lines().back().message,
              "Trying to unregister callback with not existent id: 1");
    given = 7;
    Change(3);
    commands.reset();
    EXPECT_EQ(got, 7);
    EXPECT_EQ(updates, 4);
    EXPECT_EQ(platform.Count(Call::HandleClose), 4U) << "three connections, one update handle";
}

TEST_F(ApplicationCommands, CloseCountsInTheEventThatBringsIt)
{
    int next = 0;
    platform.Block(Call::NoticeGetEvent);
    platform.Override<decltype(XoNoticeGetEvent)>(
        Call::NoticeGetEvent,
        [&next](auto, auto, auto, EventDesc* event, unsigned long* received)
        {
            constexpr int Results[] = {XoOk, XoBroken, XoOk, XoObjectGone};
            event->events = next == 2 ? 0x10001 : 0x10000;
            *received = 1;
            return Results[next++];
        });
    ConnectForUpdates();
    subscriber->RegisterCallback([&] { ++updates; });
    platform.Release(Call::NoticeGetEvent);
    WaitForEvents(2);
    commands.reset();
    EXPECT_TRUE(logger.Contains(
        LogLevel::Critical,
        "ApplicationCommands: Update handle unexpectedly closed. Server malfunction?"));
    EXPECT_EQ(updates, 1) << "neither a failure nor the end is a change";
    EXPECT_EQ(next, 3);
}

TEST_F(ApplicationCommands, WithoutAnUpdateHandleThereIsGetCommandAndNoThread)
{
    for (const int code : {XoOk, XoBroken})
    {
        transport = code;
        commands = CreateApplicationManager("app")->GetApplicationCommands();
        EXPECT_EQ(logger.Lines().back().level, LogLevel::Info);
        EXPECT_EQ(logger.Lines().back().message,
                  "ApplicationCommandsProxy: Failed to get update Handle: Exception");
        transport = XoOk;
        long got = 0;
        EXPECT_EQ(commands->GetCommand("app", got), 0);
        EXPECT_EQ(got, -3);
    }
    EXPECT_EQ(platform.Count(Call::NoticeCreate), 0U);
}

}  // namespace
}  // namespace app_manager
