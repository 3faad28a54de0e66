#include <atomic>
#include <future>

#include <gtest/gtest.h>

#include <component/logger/testing/recording_logger.h>
#include <platform/testing/platform_double.h>
#include <shared/common/tvo/entity/component_dispatcher.h>
#include <tvo/service_locator.h>

namespace {

using platform::testing::Call;
using tvo::logger::LogLevel;

constexpr std::uint16_t Riid = 4;
constexpr std::uint32_t ReceiveLimit = 20;  // milliseconds

struct Message
{
    wz_message base;
    std::uint64_t value;
};

struct Component
{
    std::function<bool(const Message& request, Message& response)> serve;
};

bool Serve(Component* component,
           unsigned short riid,
           const wz_message* request,
           const wz_arena* requestArena,
           wz_message* response,
           wz_arena* responseArena)
{
    EXPECT_EQ(riid, Riid);
    EXPECT_EQ(requestArena->end - requestArena->start, 96);
    EXPECT_EQ(responseArena->end - responseArena->current, 32);
    responseArena->current += 5;
    response->size = sizeof(Message);
    return component->serve(*reinterpret_cast<const Message*>(request),
                            *reinterpret_cast<Message*>(response));
}

using Dispatcher = tvo::entity::ComponentDispatcher<Component, Message, Message, &Serve, 96U, 32U>;

std::string EndLine(int code)
{
    return "ComponentDispatcher: [riid = 4] End of DispatcherLoop with code " +
           std::to_string(code) + "!";
}

class DispatcherTest : public testing::Test
{
protected:
    /// The answer to one request of a new client; 0 when the call has failed.
    static std::uint64_t Ask(std::uint64_t value)
    {
        WzTvoTransport transport;
        WzTvoTransport_Init(&transport, ServiceLocatorConnect("doubler"), nullptr, 0);
        Message request{{Riid, 0, sizeof(Message), {}}, value};
        Message response{{0, 0, sizeof(Message), {}}, 0};
        unsigned char room[8];
        wz_arena arena{room, room, room + sizeof(room)};
        const int result =
            transport.operations->call(&transport, &request.base, nullptr, &response.base, &arena);
        EXPECT_EQ(arena.current - arena.start, result == 0 ? 5 : 0);
        XoHandleClose(transport.handle);
        return response.value;
    }

    tvo::logger::testing::RecordingLogger log;
    platform::testing::PlatformDouble platform;
    std::uint64_t registration = 0;
    std::uint32_t endpoint = ServiceLocatorRegister("doubler", nullptr, 0, &registration);
    std::shared_ptr<Component> component =
        std::make_shared<Component>(Component{[](const Message& request, Message& response)
                                              {
                                                  response.value = request.value * 2;
                                                  return true;
                                              }});
    std::unique_ptr<Dispatcher> dispatcher =
        std::make_unique<Dispatcher>(Riid, endpoint, ReceiveLimit, component);
};

TEST_F(DispatcherTest, StartsAndStopsByItsState)
{
    EXPECT_EQ(dispatcher->Stop(), plk::codes::AlreadyDone);
    for (std::uint64_t round = 1; round <= 2; ++round)
    {
        EXPECT_EQ(dispatcher->Start(), 0);
        EXPECT_EQ(dispatcher->Start(), plk::codes::AlreadyDone);
        EXPECT_EQ(Ask(round), 2 * round);
        EXPECT_EQ(dispatcher->Stop(), 0);
        EXPECT_EQ(dispatcher->Stop(), plk::codes::AlreadyDone);
    }
}

TEST_F(DispatcherTest, FailedReceiveAndFailedReplyDoNotEndTheLoop)
{
    platform.Return(Call::TransportReceive, {.code = XoBroken, .times = 2});
    platform.Return(Call::TransportReply, {.code = XoObjectGone});
    dispatcher->Start();
    auto unanswered = std::async(std::launch::async, [] { return Ask(1); });
    ASSERT_TRUE(platform.WaitUntilCalled(Call::TransportReply));
    EXPECT_EQ(Ask(21), 42U);
    ASSERT_TRUE(platform.WaitUntilWaiting(Call::TransportReceive));
    EXPECT_TRUE(log.Lines().empty());
    dispatcher.reset();
    EXPECT_TRUE(log.Contains(LogLevel::Debug, EndLine(WzTimedOut))) << "stopped by its end";
    ServiceLocatorUnregister(registration);
    EXPECT_EQ(unanswered.get(), 0U);
}

TEST_F(DispatcherTest, FailedDispatchIsAnsweredAndEndsTheLoopUntilTheNextStart)
{
    EXPECT_EQ(dispatcher->Start(), 0);
    EXPECT_EQ(Ask(4), 8U);
    component->serve = [](auto&&...)
    {
        return false;
    };
    EXPECT_EQ(Ask(5), 8U) << "what the response of before has left there";
    auto next = std::async(std::launch::async, [] { return Ask(6); });
    ASSERT_TRUE(platform.WaitUntilWaiting(Call::TransportCall));
    EXPECT_EQ(platform.Count(Call::TransportReply), 2U);
    EXPECT_EQ(dispatcher->Start(), plk::codes::AlreadyDone);
    EXPECT_EQ(dispatcher->Stop(), 0);
    EXPECT_TRUE(log.Contains(LogLevel::Debug, EndLine(0)));
    EXPECT_EQ(dispatcher->Start(), 0);
    EXPECT_EQ(next.get(), 8U) << "served by the second loop";
    EXPECT_EQ(dispatcher->Stop(), 0);
    EXPECT_EQ(dispatcher->Stop(), plk::codes::AlreadyDone);
}

TEST_F(DispatcherTest, StopWaitsForAHandlerWithoutALimit)
{
    std::promise<void> entered;
    std::promise<void> leave;
    std::atomic<bool> stopped = false;
    bool stoppedBeforeTheHandlerLeft = true;
    component->serve = [&](const Message&, Message&)
    {
        entered.set_value();
        leave.get_future().wait();
        stoppedBeforeTheHandlerLeft = stopped;
        return true;
    };
    dispatcher->Start();
    auto caller = std::async(std::launch::async, [] { return Ask(1); });
    entered.get_future().wait();
    auto stop = std::async(std::launch::async, [&] { stopped = dispatcher->Stop() == 0; });
    EXPECT_EQ(stop.wait_for(std::chrono::milliseconds(2 * ReceiveLimit)),
              std::future_status::timeout);
    leave.set_value();
    stop.wait();
    EXPECT_TRUE(stopped);
    EXPECT_FALSE(stoppedBeforeTheHandlerLeft);
    EXPECT_EQ(platform.Journal(Call::TransportReply).at(0).result, 0) << "answered all the same";
}

}  // namespace
