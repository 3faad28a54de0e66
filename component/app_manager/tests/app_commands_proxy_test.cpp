#include <atomic>

#include <gtest/gtest.h>

#include <component/app_manager/create_application_manager.h>
#include <component/app_manager/testing/fake_app_manager.h>
#include <component/logger/testing/recording_logger.h>
#include <platform/testing/platform_double.h>
#include <xo/notice.h>

namespace app_manager {
namespace {

using platform::testing::Call;
using testing::Order;
using tvo::logger::LogLevel;
using tvo::logger::testing::RecordingLogger;

constexpr char Closed[] =
    "ApplicationCommands: Update handle unexpectedly closed. Server malfunction?";

class ApplicationCommands : public ::testing::Test
{
protected:
    void Connect()
    {
        commands = CreateApplicationManager("app")->GetApplicationCommands();
        subscriber = dynamic_cast<ICommandChangedSubscriber*>(commands.get());
    }

    /// Waits until the update thread has dealt with so many events.
    void WaitForEvents(unsigned count)
    {
        EXPECT_TRUE(platform.WaitUntilCalled(Call::NoticeGetEvent, count + 1));
    }

    testing::FakeAppManager fake;
    platform::testing::PlatformDouble platform;
    RecordingLogger logger;
    std::shared_ptr<IApplicationCommands> commands;
    ICommandChangedSubscriber* subscriber = nullptr;
    std::atomic<int> calls = 0;
};

TEST_F(ApplicationCommands, ChangesReachCallbacksUntilTheyAreUnregistered)
{
    Connect();
    long command = 0;
    EXPECT_EQ(subscriber->RegisterCallback([&] { ++calls; }), 1U);
    EXPECT_EQ(subscriber->RegisterCallback([&] { commands->GetCommand("app", command); }), 2U);
    fake.Do({Order::Command, -1});
    WaitForEvents(1);
    subscriber->UnregisterCallback(1);
    EXPECT_EQ(subscriber->RegisterCallback([] {}), 3U) << "no id comes back";
    subscriber->UnregisterCallback(1);
    EXPECT_EQ(logger.Lines().back().message,
              "Trying to unregister callback with not existent id: 1");
    fake.Do({Order::Command, -3});
    WaitForEvents(2);
    commands.reset();
    EXPECT_EQ(command, -3);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(platform.Count(Call::HandleClose), 4U) << "three connections, one update handle";
}

TEST_F(ApplicationCommands, ThrowingFirstCallbackStopsTheOthersForOneEvent)
{
    Connect();
    const auto callback = [&]
    {
        return calls++ == 0 ? throw std::runtime_error("first") : void();
    };
    subscriber->RegisterCallback(callback);
    subscriber->RegisterCallback(callback);
    fake.Do({Order::Command, 0});
    WaitForEvents(1);
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(logger.Contains(LogLevel::Critical,
                                "Failed to notify callback, std::exception: first with result: "
                                "Unspecified error = 0x8000004b"));
    fake.Do({Order::Command, 0});
    WaitForEvents(2);
    EXPECT_EQ(calls, 3);
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
    Connect();
    subscriber->RegisterCallback([&] { ++calls; });
    platform.Release(Call::NoticeGetEvent);
    WaitForEvents(2);
    commands.reset();
    EXPECT_TRUE(logger.Contains(LogLevel::Critical, Closed));
    EXPECT_EQ(calls, 1) << "neither a failure nor the end is a change";
    EXPECT_EQ(next, 3);
}

TEST_F(ApplicationCommands, WithoutAnUpdateHandleThereIsGetCommandAndNoThread)
{
    for (const auto what : {Order::Answer, Order::Refuse})
    {
        fake.Do({what, 1, "GetUpdateHandle"});
        Connect();
        long command = 1;
        EXPECT_EQ(commands->GetCommand("app", command), 0);
        EXPECT_EQ(command, 0);
        EXPECT_TRUE(logger.Contains(
            LogLevel::Info, "ApplicationCommandsProxy: Failed to get update Handle: Exception"));
    }
    EXPECT_EQ(platform.Count(Call::NoticeCreate), 0U);
}

}  // namespace
}  // namespace app_manager
