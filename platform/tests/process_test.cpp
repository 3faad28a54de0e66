// Processes that come and go, and limits that are reached.

#include <ctime>
#include <deque>
#include <future>
#include <set>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <shared/ipc_utils/publish.h>

#include "descriptor_limit.h"
#include "endpoint.h"
#include "handle_table.h"
#include "server_process.h"

namespace platform::tests {
namespace {

using Processes = LinuxTest;
using Limits = LinuxTest;

TEST_F(Processes, NameOfADeadServerIsFree)
{
    constexpr const char* Entity = ServerProcess::Entity;
    std::optional<ServerProcess> server(std::in_place);
    EXPECT_TRUE(shared::ipc_utils::FindConnectionTargetForType(Entity, 5000));
    server.reset();
    EXPECT_FALSE(shared::ipc_utils::FindConnectionTargetForType(Entity, 0));
    EXPECT_EQ(Connect(Entity, ServerProcess::Service, WzInfinite).result, XoObjectGone)
        << "its socket is still there";
    server.emplace();
    ServerProcess::ExpectNewcomersServed();
}

/// Opens every door that would stop another user before the port does.
void OpenDoors(const std::string& socket)
{
    const std::filesystem::path folder = std::getenv("TVO_RUNTIME_DIR");
    for (const auto& door : {folder, folder / "connections", folder / "connections" / socket})
    {
        std::filesystem::permissions(door, std::filesystem::perms::all);
    }
}

TEST_F(Processes, AnotherUserIsTurnedAwayAsClientAndAsServer)
{
    if (::geteuid() != 0)
    {
        GTEST_SKIP() << "needs root";
    }
    constexpr uid_t Nobody = 65534;
    const auto meet = []
    {
        std::optional<Endpoint> endpoint("foreign");
        OpenDoors("foreign.sock");
        Child foreigner(
            []
            {
                EXPECT_EQ(::setuid(Nobody), 0);
                EXPECT_EQ(RawSocket::ConnectedTo("connections/foreign").Read(), "");
                return 0;
            });
        WzTvoSetTransportTimeouts(&endpoint->transport, 50, 0);
        Letter request;
        while (!foreigner.HasEnded())
        {
            EXPECT_EQ(Receive(endpoint->transport, request), WzTimedOut);
        }
        EXPECT_EQ(foreigner.Wait(), 0);
        endpoint.reset();
        const Signal ready;
        Child impostor(
            [&]
            {
                EXPECT_EQ(::setuid(Nobody), 0);
                const RawSocket listening = RawSocket::ListeningAs("connections/foreign");
                ready.Give();
                EXPECT_EQ(listening.Accept().Read(), "");
                return 0;
            });
        ready.Await();
        // Root would trust the owner of the folder, and this is not the owner.
        EXPECT_EQ(ServiceLocatorConnect("foreign"), XoInvalidHandle);
        EXPECT_EQ(impostor.Wait(), 0);
    };
    const std::string line = "[^\n]*uid 65534 closed: it belongs to another user[^\n]*\n";
    EXPECT_THAT(LogOf(meet), testing::MatchesRegex(line + line));
}

TEST_F(Processes, SoftDescriptorLimitIsRaisedAndGivenBack)
{
    const auto limitNow = []
    {
        rlimit limit{};
        ::getrlimit(RLIMIT_NOFILE, &limit);
        return limit;
    };
    const rlim_t most = limitNow().rlim_max;
    EXPECT_EQ(limitNow().rlim_cur, most);
    Child child(
        [&]
        {
            // As at the start of a program whose soft limit is lower.
            const rlimit low{64, most};
            ::setrlimit(RLIMIT_NOFILE, &low);
            EXPECT_TRUE(RaiseDescriptorLimit());
            EXPECT_EQ(limitNow().rlim_cur, most);
            TvoTaskRestoreDescriptorLimit();
            EXPECT_EQ(limitNow().rlim_cur, 64U);
            return 0;
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
    std::deque<Client> clients;
    const auto fill = [&]
    {
        const ServerProcess server;
        for (std::size_t i = 0; i < MaxConnections; ++i)
        {
            ServerProcess::ExpectServed(clients.emplace_back(ServerProcess::Name).transport);
        }
        Child oneTooMany(
            []
            {
                Client client(ServerProcess::Name);
                Letter request;
                Letter response;
                return Call(client.transport, request, response) == XoObjectGone ? 0 : 1;
            });
        EXPECT_EQ(oneTooMany.Wait(), 0);
        ServerProcess::ExpectServed(clients.front().transport);
        clients.pop_back();
        Client next(ServerProcess::Name);
        ServerProcess::ExpectServed(next.transport);
    };
    EXPECT_THAT(LogOf(fill), testing::MatchesRegex("[^\n]*the endpoint is full[^\n]*\n"));
}

TEST_F(Limits, AFullBacklogIsTriedAgain)
{
    Endpoint endpoint("backlog");
    std::vector<RawSocket> waiting;
    sockaddr_un address{AF_UNIX, {}};
    SocketPath("connections/backlog").copy(address.sun_path, sizeof address.sun_path - 1);
    const auto* generic = reinterpret_cast<const sockaddr*>(&address);
    do
    {
        waiting.emplace_back(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    } while (::connect(waiting.back().Get(), generic, sizeof address) == 0);
    EXPECT_EQ(errno, EAGAIN);
    EXPECT_GT(waiting.size(), 1024U);
    Letter request;
    Letter response;
    const auto call = [&]
    {
        Client client("backlog");
        return Call(client.transport, response, response);
    };
    auto late = std::async(std::launch::async, call);
    waiting.clear();
    ASSERT_EQ(Receive(endpoint.transport, request), XoOk);
    EXPECT_EQ(Reply(endpoint.transport, request), XoOk);
    EXPECT_EQ(late.get(), XoOk);
}

/// Innocent callers are served meanwhile, see `Hostile`.
TEST_F(Limits, TheListenerDoesNotSpinWhenDescriptorsAreExhausted)
{
    Child child(
        []
        {
            Endpoint endpoint("exhausted");
            const RawSocket client = RawSocket::ConnectedTo("connections/exhausted");
            const rlimit low{3, 3};
            EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &low), 0);
            WzTvoSetTransportTimeouts(&endpoint.transport, 250, 0);
            Letter request;
            const auto processor = std::clock();
            EXPECT_EQ(Receive(endpoint.transport, request), WzTimedOut);
            EXPECT_LT(static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC, 0.1);
            return 0;
        });
    EXPECT_EQ(child.Wait(), 0);
}

struct EmptyObject final : Object
{
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
    std::uint32_t none = 0;
    EXPECT_EQ(XoEventCreate(&none, &none), XoNoResources);
    std::uint64_t identifier = 1;
    EXPECT_EQ(ServiceLocatorRegister("full", nullptr, 0, &identifier), XoInvalidHandle);
    EXPECT_LE(handles.size(), 65'535U);
    EXPECT_GT(handles.size(), 65'000U);
    for (const std::uint32_t handle : handles)
    {
        EXPECT_EQ(table.Close(handle), XoOk);
    }
}

}  // namespace
}  // namespace platform::tests
