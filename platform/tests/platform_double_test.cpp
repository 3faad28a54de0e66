#include <future>

#include <gmock/gmock.h>

#include <platform/testing/platform_double.h>

#include "support.h"

namespace platform::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::Endpoint;
using tests::Letter;

TEST(PlatformDouble, PlaysScriptsInOrderAndThenWorksAgain)
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
}

TEST(PlatformDouble, BlocksUntilReleased)
{
    PlatformDouble platform;
    platform.Block(Call::CmDrop);
    auto dropping = std::async(std::launch::async, [] { return XoCmDrop("c", "s"); });
    ASSERT_TRUE(platform.WaitUntilWaiting(Call::CmDrop));
    EXPECT_THAT(platform.Journal(Call::CmDrop), IsEmpty());
    platform.Release(Call::CmDrop);
    EXPECT_EQ(dropping.get(), XoObjectGone);
}

}  // namespace
}  // namespace platform::testing
