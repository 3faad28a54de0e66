#include <future>

#include <gmock/gmock.h>

#include <platform/testing/platform_double.h>
#include <shared/ipc_utils/publish.h>
#include <xo/sleep.h>

#include "support.h"

namespace platform::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::Endpoint;
using tests::Letter;

TEST(PlatformDouble, PlaysScriptsInOrderAndThenThePort)
{
    PlatformDouble platform;
    Endpoint endpoint("scripts");
    endpoint.transport.receiveTimeout = 0;
    platform.Return(Call::TransportReceive, {.code = 5, .times = 2});
    platform.Return(Call::TransportReceive, {.code = 6});
    Letter request;
    std::vector<int> results;
    for (int i = 0; i < 4; ++i)
    {
        results.push_back(Receive(endpoint.transport, request));
    }
    EXPECT_THAT(results, ElementsAre(5, 5, 6, WzTimedOut));
    EXPECT_EQ(platform.Count(Call::TransportReceive), 4U);
    EXPECT_TRUE(platform.WaitUntilReturned(Call::TransportReceive, WzTimedOut));
}

TEST(PlatformDouble, LetsCallsWithoutACodeFailInTheirWay)
{
    PlatformDouble platform;
    for (const Call call : {Call::LocatorConnect, Call::LocatorGetRiid, Call::FindTarget})
    {
        platform.Fail(call);
    }
    Endpoint endpoint("there");
    EXPECT_EQ(ServiceLocatorConnect("there"), XoInvalidHandle);
    EXPECT_EQ(ServiceLocatorGetRiid(1, "part.Point"), 65535);
    EXPECT_FALSE(shared::ipc_utils::FindConnectionTargetForType("any", WzInfinite));
    platform.Fail(Call::Sleep);
    XoSleep(WzInfinite);
    EXPECT_EQ(platform.Journal(Call::FindTarget).at(0).arguments, "\"any\", 4294967295");
}

TEST(PlatformDouble, StandsBetweenThePartsOfThePort)
{
    PlatformDouble platform;
    EXPECT_FALSE(shared::ipc_utils::FindConnectionTargetForType("none", 1));
    EXPECT_EQ(platform.Journal(Call::Sleep).at(0).arguments, "1");
}

TEST(PlatformDouble, BlocksUntilReleased)
{
    PlatformDouble platform;
    platform.Override<decltype(XoCmDrop)>(Call::CmDrop, [](auto...) { return 7; });
    platform.Block(Call::CmDrop);
    auto dropping = std::async(std::launch::async, [] { return XoCmDrop("c", "s"); });
    ASSERT_TRUE(platform.WaitUntilWaiting(Call::CmDrop));
    EXPECT_THAT(platform.Journal(Call::CmDrop), IsEmpty());
    platform.Release(Call::CmDrop);
    EXPECT_EQ(dropping.get(), 7);
}

TEST(PlatformDouble, BeginsAfresh)
{
    PlatformDouble().Fail(Call::CmDrop, 7);
    EXPECT_EQ(XoCmDrop("c", "s"), XoObjectGone);
}

}  // namespace
}  // namespace platform::testing
