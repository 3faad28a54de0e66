#include <cstring>
#include <future>
#include <set>

#include <gmock/gmock.h>

#include <shared/ipc_utils/publish.h>
#include <tvo/random.h>

#include "support.h"

namespace platform::tests {
namespace {

constexpr const char* Entity = "vx.tests.Contract";
constexpr const char* Service = "contract_service";

/// Publishes once in the process; a second time is a second line.
void Publish()
{
    static const bool published = []
    {
        static constexpr TvoEndpointDescription Endpoints[] = {
            {3, "part.Point", "Point", "vx.tests.Point"}};
        static constexpr TvoComponentDescription Components[] = {
            {"part", "vx.tests.Part", Endpoints, 1}};
        static constexpr TvoComponentTree Tree{Entity, nullptr, 0, Components, 1};
        return TvoTaskSetComponentTree(TvoTaskGetSelf(), &Tree) == XoOk &&
               shared::ipc_utils::TryPublishService("vx.tests.Interface", Service);
    }();
    ASSERT_TRUE(published);
}

std::future<Connected> ConnectInBackground()
{
    return std::async(std::launch::async, [] { return Connect(Entity, Service, 10'000); });
}

struct Names
{
    char client[XoCmNameSize] = {};
    char service[XoCmNameSize] = {};
};

int Listen(Names& names, std::uint32_t timeout = 5000)
{
    return XoCmListen(nullptr, timeout, names.client, names.service);
}

TEST(Connections, FailWithTheFittingCode)
{
    Publish();
    const Connected nobody = Connect("vx.tests.Nobody", Service);
    EXPECT_EQ(nobody.result, XoObjectGone);
    EXPECT_EQ(nobody.handle, XoInvalidHandle);
    EXPECT_EQ(nobody.riid, 65535U);
    EXPECT_EQ(Connect(Entity, Service, 20).result, XoTimedOut);

    Names names;
    EXPECT_EQ(Listen(names, 20), XoTimedOut) << "the client has gone";
    auto connecting = ConnectInBackground();
    ASSERT_EQ(Listen(names), XoOk);
    std::uint32_t handle = 0;
    EXPECT_EQ(XoCmAccept(names.client, Service, 1, 0x123456, &handle), XoObjectGone);
    EXPECT_EQ(XoCmDrop(names.client, Service), XoOk) << "still pending";
    EXPECT_EQ(XoCmDrop(names.client, Service), XoObjectGone);
    EXPECT_EQ(connecting.get().result, XoRefused);
}

TEST(Connections, ARequestThatIsLeftAloneComesAgainAfterTheOthers)
{
    Publish();
    auto first = ConnectInBackground();
    Names one;
    ASSERT_EQ(Listen(one), XoOk);
    Names again;
    ASSERT_EQ(Listen(again), XoOk);
    EXPECT_STREQ(again.client, one.client);
    auto second = ConnectInBackground();
    Names two;
    ASSERT_TRUE(Eventually(
        [&] { return Listen(two) == XoOk && std::strcmp(two.client, one.client) != 0; }));
    ASSERT_EQ(Listen(again), XoOk);
    EXPECT_STREQ(again.client, one.client) << "reported longest ago";
    EXPECT_EQ(XoCmDrop(one.client, Service), XoOk);
    EXPECT_EQ(XoCmDrop(two.client, Service), XoOk);
    EXPECT_EQ(first.get().result, XoRefused);
    EXPECT_EQ(second.get().result, XoRefused);
}

TEST(Names, LeadToInterfaceNumbersAndServices)
{
    Publish();
    Endpoint endpoint("numbers");
    Client client("numbers");
    EXPECT_EQ(ServiceLocatorGetRiid(client.handle, "part.Point"), 3);
    EXPECT_EQ(ServiceLocatorGetRiid(client.handle, "part.Other"), 65535);
    EXPECT_EQ(ServiceLocatorGetRiid(endpoint.handle, "part.Point"), 65535);

    const auto target = shared::ipc_utils::FindConnectionTargetForType("vx.tests.Interface", 0);
    ASSERT_TRUE(target);
    EXPECT_STREQ(target->first.data(), Entity);
    EXPECT_STREQ(target->second.data(), Service);
    EXPECT_FALSE(shared::ipc_utils::FindConnectionTargetForType("vx.tests.None", 20));
}

}  // namespace
}  // namespace platform::tests
