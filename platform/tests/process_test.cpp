// Processes that come and go, and limits that are reached.

#include <ctime>
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

TEST_F(Processes, ServerIsFoundWhileItLivesAndItsNameIsFreeAfterwards)
{
    using shared::ipc_utils::FindConnectionTargetForType;
    constexpr const char* Entity = ServerProcess::Entity;
    const LogLines log;
    {
        const ServerProcess server;
        const auto found = FindConnectionTargetForType(Entity, 5000);
        ASSERT_TRUE(found);
        EXPECT_STREQ(found->first.data(), Entity);
        EXPECT_STREQ(found->second.data(), ServerProcess::Service);
        Child rival([] { return PublishAs(Entity, "another") ? 0 : 1; });
        EXPECT_EQ(rival.Wait(), 1) << "the name is held";
    }
    EXPECT_FALSE(FindConnectionTargetForType(Entity, 0));
    std::uint32_t handle = 0;
    std::uint32_t riid = 0;
    EXPECT_EQ(XoCmConnect(Entity, ServerProcess::Service, WzInfinite, &handle, &riid), XoObjectGone)
        << "its socket is still there";
    Child successor([] { return PublishAs(Entity, "another") ? 0 : 1; });
    EXPECT_EQ(successor.Wait(), 0);
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
    const LogLines log;
    {
        Endpoint endpoint("foreign");
        OpenDoors("foreign.sock");
        Child foreigner(
            []
            {
                EXPECT_EQ(::setuid(Nobody), 0);
                EXPECT_EQ(RawSocket::ConnectedTo("connections/foreign").Read(), "");
                return 0;
            });
        WzTvoSetTransportTimeouts(&endpoint.transport, 50, 0);
        Letter request;
        while (!foreigner.HasEnded())
        {
            EXPECT_EQ(Receive(endpoint.transport, request), WzTimedOut);
        }
        EXPECT_EQ(foreigner.Wait(), 0);
    }
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
    EXPECT_EQ(log.Count("uid 65534 closed: it belongs to another user"), 2U) << log.Text();
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
    const LogLines log;
    const ServerProcess server;
    std::vector<std::unique_ptr<Client>> clients;
    for (std::size_t i = 0; i < MaxConnections; ++i)
    {
        clients.push_back(std::make_unique<Client>(ServerProcess::Name));
        ServerProcess::ExpectServed(clients.back()->transport);
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
    EXPECT_EQ(log.Count("the endpoint is full"), 1U);
    ServerProcess::ExpectServed(clients.front()->transport);
    clients.pop_back();
    Client next(ServerProcess::Name);
    ServerProcess::ExpectServed(next.transport);
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
    auto late = std::async(std::launch::async,
                           []
                           {
                               Client client("backlog");
                               Letter request;
                               Letter response;
                               return Call(client.transport, request, response);
                           });
    waiting.clear();
    Letter request;
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
    std::uint32_t setter = 0;
    std::uint32_t waiter = 0;
    EXPECT_EQ(XoEventCreate(&setter, &waiter), XoNoResources);
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
