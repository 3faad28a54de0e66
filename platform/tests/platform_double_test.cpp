#include <future>

#include <gmock/gmock.h>

#include <platform/testing/platform_double.h>
#include <tvo/service_locator.h>
#include <xo/sleep.h>

#include "support.h"

namespace platform::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using tests::Client;
using tests::Endpoint;
using tests::Letter;

/// Answers with byte 24 of the request, one higher, and the arena "pong".
int Pong(const wz_message* request, const wz_arena*, wz_message* response, wz_arena* arena)
{
    const auto* asked = reinterpret_cast<const unsigned char*>(request);
    reinterpret_cast<unsigned char*>(response)[24] = static_cast<unsigned char>(asked[24] + 1);
    const std::string text = "pong";
    arena->current = std::copy(text.begin(), text.end(), arena->current);
    return XoOk;
}

TEST(PlatformDouble, ServesClientsByAFunction)
{
    PlatformDouble platform;
    platform.Serve({.interfaceName = "vx.I", .server = "vx.S", .service = "s", .riid = 70000},
                   &Pong);
    const auto target = shared::ipc_utils::FindConnectionTargetForType("vx.I", 0);
    ASSERT_TRUE(target);
    std::uint32_t handle = 0;
    std::uint32_t riid = 0;
    ASSERT_EQ(XoCmConnect(target->first.data(), target->second.data(), 0, &handle, &riid), XoOk);
    EXPECT_EQ(riid, 70000U);
    Client client(handle);
    Letter request;
    request.Head().mid = 3;
    request.bytes[24] = 5;
    Letter response(80, 10);
    EXPECT_EQ(tests::Call(client.transport, request, response), XoOk);
    EXPECT_EQ(response.Head().mid, 3);
    EXPECT_EQ(response.bytes[24], 6);
    EXPECT_EQ(response.Text(), "pong");

    platform.Withdraw("vx.S");
    EXPECT_EQ(tests::Call(client.transport, request, response), XoObjectGone);
    EXPECT_EQ(XoCmConnect("vx.S", "s", 0, &handle, &riid), XoObjectGone);
    EXPECT_EQ(platform.OpenHandles(), 1U);
}

TEST(PlatformDouble, PlaysScriptsInOrderAndThenWorksAgain)
{
    PlatformDouble platform;
    Endpoint endpoint("scripts");
    endpoint.transport.receiveTimeout = 0;
    platform.Return(Call::TransportReceive, {.code = 5, .times = 2, .skip = 1});
    platform.Return(Call::TransportReceive, {.code = 6});
    Letter request;
    std::vector<int> results;
    for (int i = 0; i < 5; ++i)
    {
        results.push_back(Receive(endpoint.transport, request));
    }
    EXPECT_THAT(results, ElementsAre(WzTimedOut, 5, 5, 6, WzTimedOut));
    EXPECT_EQ(platform.Count(Call::TransportReceive), 5U);
}

TEST(PlatformDouble, FailsEachCallInItsOwnWay)
{
    PlatformDouble platform;
    for (const Call call : {Call::LocatorRegister,
                            Call::LocatorConnect,
                            Call::LocatorGetRiid,
                            Call::PublishService,
                            Call::FindTarget,
                            Call::TaskSetComponentTree})
    {
        platform.Fail(call, XoRefused);
    }
    std::uint64_t identifier = 0;
    EXPECT_EQ(ServiceLocatorRegister("x", nullptr, 0, &identifier), XoInvalidHandle);
    EXPECT_EQ(ServiceLocatorConnect("x"), XoInvalidHandle);
    EXPECT_EQ(ServiceLocatorGetRiid(1, "x"), 65535);
    EXPECT_FALSE(shared::ipc_utils::TryPublishService("i", "s"));
    EXPECT_FALSE(shared::ipc_utils::FindConnectionTargetForType("i", 0));
    EXPECT_EQ(TvoTaskSetComponentTree(TvoTaskGetSelf(), nullptr), XoRefused);
    platform.Restore(Call::LocatorRegister);
    EXPECT_NE(ServiceLocatorRegister("x", nullptr, 0, &identifier), XoInvalidHandle);
}

TEST(PlatformDouble, BlocksUntilReleased)
{
    PlatformDouble platform;
    platform.Block(Call::CmDrop);
    auto dropping = std::async(std::launch::async, [] { return XoCmDrop("c", "s"); });
    ASSERT_TRUE(platform.WaitUntilWaiting(Call::CmDrop));
    EXPECT_THAT(platform.Journal(), IsEmpty());
    platform.Release(Call::CmDrop);
    EXPECT_EQ(dropping.get(), XoObjectGone);
}

TEST(PlatformDouble, ExpiresWaitsAtOnce)
{
    PlatformDouble platform;
    Endpoint endpoint("expires");
    endpoint.transport.receiveTimeout = WzInfinite;
    auto receiving = std::async(std::launch::async,
                                [&]
                                {
                                    Letter request;
                                    return Receive(endpoint.transport, request);
                                });
    ASSERT_TRUE(platform.WaitUntilWaiting(Call::TransportReceive));
    platform.ExpireWaits(Call::TransportReceive);
    EXPECT_EQ(receiving.get(), WzTimedOut);
}

TEST(PlatformDouble, ReportsRequestsOfClientsThatNeedNoThread)
{
    PlatformDouble platform;
    const PendingClient kept = platform.RequestConnection("one", "s");
    const PendingClient dropped = platform.RequestConnection("two", "s");
    const PendingClient gone = platform.RequestConnection("three", "s");
    gone.HangUp();
    char client[XoCmNameSize];
    char service[XoCmNameSize];
    std::uint32_t endpoint = 0;
    ASSERT_EQ(XoCmListen(nullptr, 0, client, service), XoOk);
    EXPECT_STREQ(client, "one");
    ASSERT_EQ(XoCmAccept(client, service, 4, XoInvalidHandle, &endpoint), XoOk);
    ASSERT_EQ(XoCmListen(nullptr, 0, client, service), XoOk);
    ASSERT_EQ(XoCmDrop(client, service), XoOk);
    EXPECT_EQ(XoCmListen(nullptr, 0, client, service), XoTimedOut);
    EXPECT_EQ(kept.WaitForVerdict(), XoOk);
    EXPECT_EQ(kept.Riid(), 4U);
    EXPECT_NE(kept.Handle(), XoInvalidHandle);
    EXPECT_EQ(dropped.WaitForVerdict(), XoRefused);
    EXPECT_EQ(gone.WaitForVerdict(std::chrono::milliseconds(0)), std::nullopt);
}

TEST(PlatformDouble, RunsTheTestsOwnFunctionAndKeepsAJournal)
{
    PlatformDouble platform;
    platform.Override().cmAccept =
        [](const char*, const char*, std::uint32_t, std::uint32_t, std::uint32_t* handle)
    {
        *handle = 99;
        return XoOk;
    };
    std::uint32_t handle = 0;
    EXPECT_EQ(XoCmAccept("c", "s", 1, 2, &handle), XoOk);
    EXPECT_EQ(handle, 99U);
    XoSleep(600'000);
    EXPECT_THAT(platform.Journal(),
                ElementsAre(Field(&Record::arguments, "\"c\", \"s\", 1, 2"),
                            Field(&Record::arguments, "600000")));
    EXPECT_STREQ(NameOf(platform.Journal().back().call), "XoSleep");
}

TEST(PlatformDouble, EndFreesThreadsAndForgetsEverything)
{
    std::future<int> receiving;
    {
        PlatformDouble platform;
        std::uint64_t identifier = 0;
        const std::uint32_t handle = ServiceLocatorRegister("left", nullptr, 0, &identifier);
        platform.Fail(Call::CmDrop, 7);
        receiving = std::async(std::launch::async,
                               [handle]
                               {
                                   auto transport = tests::MakeTransport(handle, WzInfinite);
                                   Letter request;
                                   return Receive(transport, request);
                               });
        ASSERT_TRUE(platform.WaitUntilWaiting(Call::TransportReceive));
    }
    EXPECT_EQ(receiving.get(), XoObjectGone);
    PlatformDouble platform;
    EXPECT_EQ(platform.OpenHandles(), 0U);
    EXPECT_EQ(XoCmDrop("c", "s"), XoObjectGone);
    EXPECT_EQ(ServiceLocatorConnect("left"), XoInvalidHandle);
}

}  // namespace
}  // namespace platform::testing
