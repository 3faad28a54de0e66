#include <set>

#include <gmock/gmock.h>

#include <shared/ipc_utils/publish.h>

#include "connection_requests.h"
#include "handshake.h"
#include "linux_support.h"

namespace platform::tests {
namespace {

/// Requests for connections, in a program of their own: a process publishes under one name.
class Requests : public LinuxTest
{
protected:
    static constexpr const char* Entity = "vx.tests.Requests";

    static void SetUpTestSuite()
    {
        static constexpr TvoComponentTree Tree{Entity, nullptr, 0, nullptr, 0};
        static const bool published =
            TvoTaskSetComponentTree(TvoTaskGetSelf(), &Tree) == XoOk &&
            shared::ipc_utils::TryPublishService("vx.tests.Offered", "offered");
        ASSERT_TRUE(published);
    }

    static RawSocket Ask(const std::string& service)
    {
        RawSocket raw = RawSocket::ConnectedTo("servers/" + std::string(Entity));
        EXPECT_EQ(SendConnect(raw.Get(), {service, "raw"}), Departure::Sent);
        return raw;
    }

    int Listen(std::uint32_t timeout)
    {
        return XoCmListen(nullptr, timeout, client, service);
    }

    char client[XoCmNameSize] = {};
    char service[XoCmNameSize] = {};
    LogLines log;
};

TEST_F(Requests, ForWhatIsNotOfferedHoldNobodyUp)
{
    std::vector<RawSocket> others;
    for (int i = 0; i < 200; ++i)
    {
        others.push_back(Ask("not offered"));
    }
    RawSocket innocent = Ask("offered");
    ASSERT_EQ(Listen(5000), XoOk);
    EXPECT_STREQ(service, "offered");
    EXPECT_EQ(XoCmDrop(client, service), XoOk);
    EXPECT_FALSE(innocent.Read().empty());
    ASSERT_EQ(Listen(5000), XoOk);
    EXPECT_STREQ(service, "not offered") << "reported all the same";
    others.clear();
    EXPECT_EQ(Listen(20), XoTimedOut);
}

TEST_F(Requests, SilentClientsHoldNobodyUp)
{
    std::vector<RawSocket> silent;
    for (std::size_t i = 0; i < MaxPendingRequests + 2; ++i)
    {
        silent.push_back(RawSocket::ConnectedTo("servers/" + std::string(Entity)));
    }
    RawSocket innocent = Ask("offered");
    const auto start = Clock::now();
    ASSERT_EQ(Listen(10000), XoOk);
    EXPECT_LT(Clock::now() - start, milliseconds(5000));
    EXPECT_STREQ(service, "offered");
    EXPECT_GE(log.Count("does not say what it wants"), 3U);
    silent.clear();
    innocent.Close();
    EXPECT_EQ(Listen(20), XoTimedOut);
}

TEST_F(Requests, BeyondTheLimitWaitInTheBacklog)
{
    std::vector<RawSocket> clients;
    for (std::size_t i = 0; i < MaxPendingRequests + 1; ++i)
    {
        clients.push_back(Ask("offered"));
    }
    std::set<std::string> names;
    for (std::size_t i = 0; i < 2 * MaxPendingRequests; ++i)
    {
        ASSERT_EQ(Listen(0), XoOk);
        names.insert(client);
    }
    EXPECT_EQ(names.size(), MaxPendingRequests);
    EXPECT_EQ(XoCmDrop(client, service), XoOk);
    ASSERT_EQ(Listen(5000), XoOk);
    EXPECT_TRUE(names.insert(client).second) << "the one that waited outside";
    clients.clear();
    EXPECT_EQ(Listen(20), XoTimedOut);
}

TEST_F(Requests, BrokenOnesCostTheirSenderTheConnection)
{
    const auto name = "servers/" + std::string(Entity);
    RawSocket garbage = RawSocket::ConnectedTo(name);
    garbage.Send("garbage");
    RawSocket request = RawSocket::ConnectedTo(name);
    request.Send(RawPacket().Bytes());
    RawSocket impatient = Ask("offered");
    impatient.Send(RawPacket().Bytes());
    EXPECT_EQ(Listen(50), XoOk) << "reported before it spoke again";
    EXPECT_EQ(Listen(50), XoTimedOut);
    for (const RawSocket* raw : {&garbage, &request, &impatient})
    {
        EXPECT_EQ(raw->Read(), "");
    }
    EXPECT_EQ(log.Count("closed"), 3U);
}

}  // namespace
}  // namespace platform::tests
