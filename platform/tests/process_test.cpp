// Processes that come and go, and limits that are reached.

#include <ctime>
#include <set>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <shared/ipc_utils/publish.h>

#include "descriptor_limit.h"
#include "endpoint.h"
#include "handle_table.h"
#include "linux_support.h"

namespace platform::tests {
namespace {

using Processes = LinuxTest;
using Limits = LinuxTest;

/// The interface is named like the entity.
bool PublishAs(const char* entity, const char* service)
{
    const TvoComponentTree tree{entity, nullptr, 0, nullptr, 0};
    TvoTaskSetComponentTree(TvoTaskGetSelf(), &tree);
    return shared::ipc_utils::TryPublishService(entity, service);
}

TEST_F(Processes, ServerIsFoundWhileItLivesAndItsNameIsFreeAfterwards)
{
    LogLines log;
    Signal ready;
    Child server(
        [&]
        {
            const bool published = PublishAs("vx.tests.Mortal", "one service");
            ready.Give();
            ::pause();
            return published ? 0 : 1;
        });
    ready.Await();
    const auto found = shared::ipc_utils::FindConnectionTargetForType("vx.tests.Mortal", 5000);
    ASSERT_TRUE(found);
    EXPECT_STREQ(found->first.data(), "vx.tests.Mortal");
    EXPECT_STREQ(found->second.data(), "one service");

    Child rival([] { return PublishAs("vx.tests.Mortal", "another") ? 0 : 1; });
    EXPECT_EQ(rival.Wait(), 1) << "the name is held";
    server.Kill();
    EXPECT_FALSE(shared::ipc_utils::FindConnectionTargetForType("vx.tests.Mortal", 0));
    std::uint32_t handle = 0;
    std::uint32_t riid = 0;
    EXPECT_EQ(XoCmConnect("vx.tests.Mortal", "one service", WzInfinite, &handle, &riid),
              XoObjectGone)
        << "its socket is still there";
    Child successor([] { return PublishAs("vx.tests.Mortal", "another") ? 0 : 1; });
    EXPECT_EQ(successor.Wait(), 0);
}

TEST_F(Processes, ServerThatRepliesAndDiesIsHeard)
{
    Signal ready;
    Child server(
        [&]
        {
            Endpoint endpoint("last-words");
            ready.Give();
            Letter request;
            Receive(endpoint.transport, request);
            Reply(endpoint.transport, request);
            return ::raise(SIGKILL);
        });
    ready.Await();
    Client client("last-words");
    Letter request;
    request.bytes[24] = 7;
    Letter response;
    EXPECT_EQ(Call(client.transport, request, response), XoOk);
    EXPECT_EQ(response.bytes[24], 7);
}

TEST_F(Processes, NobodyIsAskedForACallerKilledWhileItWaits)
{
    Endpoint endpoint("killed-client");
    Signal waiting;
    Signal may;
    Child dead(
        [&]
        {
            may.Await();
            Client client("killed-client");
            WzTvoSetTransportTimeouts(&client.transport, 0, 0);
            Letter request;
            Letter response;
            for (int i = 0; i < 3; ++i)
            {
                Call(client.transport, request, response);
            }
            waiting.Give();
            ::pause();
            return 0;
        });
    Child living(
        []
        {
            Client client("killed-client");
            Letter request;
            request.bytes[24] = 1;
            Letter response;
            return Call(client.transport, request, response) == XoOk ? 0 : 1;
        });
    Letter first;
    ASSERT_EQ(Receive(endpoint.transport, first), XoOk);
    EXPECT_EQ(first.bytes[24], 1);
    WzTvoPeer peer{};
    EXPECT_EQ(WzTvoTransportGetPeer(&endpoint.transport, &peer), XoOk);
    EXPECT_EQ(peer.pid, static_cast<std::uint32_t>(living.Pid()));
    may.Give();
    waiting.Await();
    dead.Kill();
    EXPECT_EQ(Reply(endpoint.transport, first), XoOk);
    EXPECT_EQ(living.Wait(), 0);
    WzTvoSetTransportTimeouts(&endpoint.transport, 50, 0);
    Letter none;
    EXPECT_EQ(Receive(endpoint.transport, none), WzTimedOut);
}

TEST_F(Processes, AnotherUserIsTurnedAway)
{
    if (::geteuid() != 0)
    {
        GTEST_SKIP() << "needs root";
    }
    LogLines log;
    Endpoint endpoint("foreign");
    // Opens every door that would stop such a user before.
    const std::filesystem::path folder = std::getenv("TVO_RUNTIME_DIR");
    using std::filesystem::perms;
    for (const auto& path : {folder, folder / "connections"})
    {
        std::filesystem::permissions(path, perms::all);
    }
    std::filesystem::permissions(SocketPath("connections/foreign"), perms::all);
    Child foreigner(
        []
        {
            if (::setgid(65534) != 0 || ::setuid(65534) != 0)
            {
                return 2;
            }
            const RawSocket raw = RawSocket::ConnectedTo("connections/foreign");
            return raw.Read().empty() ? 0 : 1;
        });
    WzTvoSetTransportTimeouts(&endpoint.transport, 50, 0);
    Letter request;
    while (log.Count() == 0)
    {
        ASSERT_EQ(Receive(endpoint.transport, request), WzTimedOut);
    }
    EXPECT_EQ(foreigner.Wait(), 0);
    EXPECT_EQ(log.Count("uid 65534 closed: it belongs to another user"), 1U);
    for (const auto& path : {folder, folder / "connections"})
    {
        std::filesystem::permissions(path, perms::owner_all);
    }
}

TEST_F(Processes, SoftDescriptorLimitIsRaisedAndGivenBack)
{
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    EXPECT_EQ(limit.rlim_cur, limit.rlim_max);
    Child child(
        [limit]
        {
            // As at the start of a program whose soft limit is lower.
            rlimit now{64, limit.rlim_max};
            ::setrlimit(RLIMIT_NOFILE, &now);
            const bool raised = RaiseDescriptorLimit();
            ::getrlimit(RLIMIT_NOFILE, &now);
            const rlim_t during = now.rlim_cur;
            TvoTaskRestoreDescriptorLimit();
            ::getrlimit(RLIMIT_NOFILE, &now);
            return raised && during == limit.rlim_max && now.rlim_cur == 64 ? 0 : 1;
        });
    EXPECT_EQ(child.Wait(), 0);
}

TEST_F(Processes, PermanentFailuresTakeTheirTime)
{
    const auto start = Clock::now();
    WzTvoTransport transport = MakeTransport(0x123456, 0);
    Letter request;
    EXPECT_EQ(Receive(transport, request), XoObjectGone);
    EXPECT_GE(Clock::now() - start, milliseconds(100));
}

TEST_F(Limits, AFullEndpointTurnsAwayAndMakesRoomByItself)
{
    rlimit limit{};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    if (limit.rlim_cur < 3 * MaxConnections)
    {
        GTEST_SKIP() << "too few descriptors";
    }
    LogLines log;
    EchoServer server("full");
    Letter request;
    Letter response;
    std::vector<std::unique_ptr<Client>> clients;
    for (std::size_t i = 0; i < MaxConnections; ++i)
    {
        clients.push_back(std::make_unique<Client>("full"));
        ASSERT_EQ(Call(clients.back()->transport, request, response), XoOk) << i;
    }
    {
        Client oneTooMany("full");
        EXPECT_EQ(Call(oneTooMany.transport, request, response), XoObjectGone);
        EXPECT_EQ(log.Count("full"), 1U);
    }
    EXPECT_EQ(Call(clients.front()->transport, request, response), XoOk) << "goes on";
    clients.pop_back();
    Client next("full");
    EXPECT_EQ(Call(next.transport, request, response), XoOk);
}

TEST_F(Limits, AConnectionThatDoesNotFitAnEndpointStaysPending)
{
    // Sweeping makes room while the endpoint's own thread is busy, here: is not there.
    const auto endpoint = platform::Endpoint::Make(std::nullopt);
    std::vector<Descriptor> others;
    const auto add = [&]
    {
        int ends[2];
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends), 0);
        others.emplace_back(ends[0]);
        Descriptor socket(ends[1]);
        std::uint64_t id = 0;
        const int result = endpoint->Add(socket, {}, id);
        EXPECT_EQ(static_cast<bool>(socket), result != XoOk) << "taken only on success";
        return result;
    };
    for (std::size_t i = 0; i < MaxConnections; ++i)
    {
        ASSERT_EQ(add(), XoOk);
    }
    EXPECT_EQ(add(), XoNoResources);
    others[5].Reset();
    EXPECT_EQ(add(), XoOk);
    endpoint->Close();
    EXPECT_EQ(add(), XoObjectGone);
}

TEST_F(Limits, TheListenerRestsWhenDescriptorsAreExhausted)
{
    LogLines log;
    Endpoint endpoint("exhausted");
    const RawSocket client = RawSocket::ConnectedTo("connections/exhausted");
    client.Send(RawPacket().Bytes());
    rlimit former{};
    ::getrlimit(RLIMIT_NOFILE, &former);
    rlimit low = former;
    low.rlim_cur = 3;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &low), 0);
    WzTvoSetTransportTimeouts(&endpoint.transport, 250, 0);
    Letter request;
    const auto processor = std::clock();
    EXPECT_EQ(Receive(endpoint.transport, request), WzTimedOut);
    EXPECT_LT(static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC, 0.1) << "spins";
    ::setrlimit(RLIMIT_NOFILE, &former);
    EXPECT_EQ(log.Count("resting"), 1U);
    WzTvoSetTransportTimeouts(&endpoint.transport, 5000, 0);
    EXPECT_EQ(Receive(endpoint.transport, request), XoOk);
}

class EmptyObject final : public Object
{
public:
    EmptyObject() : Object(ObjectKind::EventWaiter) {}

    void Close() override {}
};

TEST_F(Limits, HandlesAreToldApartUntilTheTableIsFull)
{
    HandleTable& table = HandleTable::Instance();
    std::set<std::uint32_t> seen;
    for (int i = 0; i < 1000; ++i)
    {
        const std::uint32_t handle = table.Add(std::make_shared<EmptyObject>());
        EXPECT_LT(handle, 0xFFFFFFU);
        EXPECT_TRUE(seen.insert(handle).second) << "used again too soon";
        EXPECT_EQ(table.Close(handle), XoOk);
        EXPECT_EQ(table.Close(handle), XoObjectGone);
    }
    std::vector<std::uint32_t> handles;
    for (std::uint32_t handle = 0; handle != XoInvalidHandle && handles.size() < 70'000;)
    {
        handle = table.Add(std::make_shared<EmptyObject>());
        handles.push_back(handle);
    }
    EXPECT_EQ(handles.back(), XoInvalidHandle);
    handles.pop_back();
    EXPECT_LE(handles.size(), 65'535U);
    EXPECT_GT(handles.size(), 65'000U);
    for (const std::uint32_t handle : handles)
    {
        EXPECT_EQ(table.Close(handle), XoOk);
    }
}

}  // namespace
}  // namespace platform::tests
