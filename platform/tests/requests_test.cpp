#include <algorithm>
#include <set>

#include <gmock/gmock.h>

#include "connection_requests.h"
#include "endpoint.h"
#include "handle_table.h"
#include "linux_support.h"

namespace platform::tests {
namespace {

/// Requests for connections, in a program of their own: a process publishes under one name.
class Requests : public PublishedTest
{
protected:
    static RawSocket Ask(const std::string& service)
    {
        RawSocket raw = RawSocket::ConnectedTo(Servers);
        raw.Send(AskFor(service));
        return raw;
    }
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
    const auto isRefused = [](const RawSocket& raw)
    {
        return raw.IsReady() && raw.Read() == Verdict(XoNoResources, 65535);
    };
    EXPECT_EQ(std::count_if(others.begin(), others.end(), isRefused), 201 - MaxPendingRequests)
        << "made room";
    others.clear();
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

TEST_F(Requests, StayPendingWhenTheEndpointIsFull)
{
    // Sweeping makes room while the endpoint's own thread is busy, here: is not there.
    tests::Endpoint target("crowded");
    const auto endpoint = HandleTable::Instance().Find<platform::Endpoint>(target.handle);
    std::vector<RawSocket> others;
    for (std::size_t i = 0; i < MaxConnections; ++i)
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends), 0);
        others.emplace_back(ends[0]);
        Descriptor socket(ends[1]);
        std::uint64_t id = 0;
        ASSERT_EQ(endpoint->Add(socket, {}, id), XoOk);
    }
    const RawSocket asking = Ask("offered");
    ASSERT_EQ(Listen(5000), XoOk);
    std::uint32_t handle = 0;
    EXPECT_EQ(XoCmAccept(client, service, 1, target.handle, &handle), XoNoResources);
    others[5].Close();
    EXPECT_EQ(XoCmAccept(client, service, 1, target.handle, &handle), XoOk);
    EXPECT_EQ(asking.Read(), Verdict(XoOk));
}

}  // namespace
}  // namespace platform::tests
