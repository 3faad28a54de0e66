// Partners that keep to no rules, and such that die at the worst moment: each costs itself its
// connection and one log line, and nobody else anything.

#include <deque>

#include <sys/mman.h>

#include "arena_file.h"
#include "event_object.h"
#include "handle_table.h"
#include "offence_filter.h"
#include "server_process.h"

namespace platform::tests {
namespace {

const std::string Direct = std::string("connections/") + ServerProcess::Name;
const std::string Asking = std::string("servers/") + ServerProcess::Entity;
const std::string Sound = Packet();
const std::string Reply = Packet{.kind = FrameKind::Reply};

/// What an offender has opened; stays open until its process is told to leave.
using Loot = std::deque<RawSocket>;

struct Offender
{
    std::string what;
    std::function<void(Loot&)> misbehave;
    std::size_t lines = 0;
    int status = 0;                    ///< of its process
    std::size_t spareDescriptors = 0;  ///< of the server; newcomers wait until the offender is gone
};

const RawSocket& Open(Loot& loot, const std::string& place, const std::string& words = "")
{
    const RawSocket& raw = loot.emplace_back(RawSocket::ConnectedTo(place));
    EXPECT_TRUE(words.empty() || raw.TrySend(words));
    return raw;
}

using Hostile = LinuxTest;

/// A server in a process of its own, an offender in another one, and this process, which is
/// innocent and served before, meanwhile and afterwards.
void SufferUnlogged(const Offender& offender)
{
    const ServerProcess server(offender.spareDescriptors);
    const std::string pid = std::to_string(server.Pid());
    Client innocent(ServerProcess::Name);
    ServerProcess::ExpectServed(innocent.transport);
    const std::size_t descriptors = CountDescriptors(pid);
    ServerProcess::ExpectNewcomersServed();
    const auto memory = [&]
    {
        return ServerProcess::ExpectServed(innocent.transport, ServerProcess::TellMemory);
    };
    const std::uint64_t memoryBefore = memory();

    const Signal done;
    const Signal leave;
    Child hostile(
        [&]
        {
            Loot loot;
            offender.misbehave(loot);
            done.Give();
            leave.Await();
            return 0;
        });
    for (bool last = false; !last && !testing::Test::HasFailure();)
    {
        last = done.IsGiven() || hostile.HasEnded();
        ServerProcess::ExpectServed(innocent.transport);
        if (offender.spareDescriptors == 0)
        {
            ServerProcess::ExpectNewcomersServed();
        }
    }
    leave.Give();
    EXPECT_EQ(hostile.Wait(), offender.status);
    ServerProcess::ExpectNewcomersServed();
    EXPECT_TRUE(Eventually([&] { return CountDescriptors(pid) == descriptors; }));
    EXPECT_LE(memory(), memoryBefore + 65536);
}

void ExpectLines(std::size_t count, const std::function<void()>& function)
{
    const std::string log = LogOf(function);
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), count) << log;
}

void Suffer(const Offender& offender)
{
    SCOPED_TRACE(offender.what);
    ExpectLines(offender.lines, [&] { SufferUnlogged(offender); });
}

/// Descriptors that are no arena of 70000 bytes and no event object, by what is wrong with them.
std::vector<std::pair<const char*, Descriptor>> MakeForeignDescriptors()
{
    const std::vector<unsigned char> bytes(69999);
    int pipes[2];
    EXPECT_EQ(::pipe2(pipes, O_CLOEXEC), 0);
    ::close(pipes[1]);
    Descriptor half(::memfd_create("half sealed", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    EXPECT_EQ(::ftruncate(half.Get(), 70000), 0);
    EXPECT_EQ(::fcntl(half.Get(), F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW), 0);
    std::vector<std::pair<const char*, Descriptor>> made;
    made.emplace_back("sealed but for writing", std::move(half));
    made.emplace_back("too short", MakeArenaFile(bytes.data(), bytes.size()));
    made.emplace_back("a pipe", Descriptor(pipes[0]));
    made.emplace_back("/dev/zero", Descriptor(::open("/dev/zero", O_RDWR | O_CLOEXEC)));
    return made;
}

TEST_F(Hostile, BrokenPacketsCostTheirSenderTheConnection)
{
    struct Row
    {
        std::string what;
        std::vector<std::string> packets;  ///< only the last one is broken
        std::vector<int> descriptors = {};
        std::string place = Direct;
    };
    const auto foreign = MakeForeignDescriptors();
    const std::vector<unsigned char> bytes(65536);
    const auto small = MakeArenaFile(bytes.data(), 65536);
    const RawSocket sound;
    const std::string fifth = Packet{.sequence = 5};
    std::vector<Row> rows{
        {"an empty packet", {""}},
        {"longer than any packet", {std::string(80'000, 'x')}},
        {"one byte too many", {Sound + "x"}},
        {"the next version", {Packet{.magic = FrameMagic + (1U << 24)}}},
        {"a reply", {Reply}},
        {"unknown flags", {Packet{.flags = 2}}},
        {"a message too large", {Packet{.messageBytes = 4097}}},
        {"a size word above the size", {Packet{.sizeWord = 81}}},
        {"sizes that wrap round", {Packet{.arenaBytes = 0xFFFFFFFF}}},
        {"a small arena file", {Packet{.flags = 1, .arenaBytes = 65536}}, {small.Get()}},
        {"sequence zero", {Packet{.sequence = 0}}},
        {"a sequence twice", {fifth, fifth}},
        {"an answer that was never sent", {Packet{.sequence = 5, .acknowledged = 4}}},
        {"a handle beyond the count", {Packet{.handles = 2, .mask = 4}}, {sound.Get()}},
        {"more descriptors than handles",
         {Packet{.handles = 1, .mask = 1}},
         {sound.Get(), sound.Get()}},
        {"twenty descriptors", {Sound}, std::vector<int>(20, sound.Get())},
        {"name: none of the service", {AskFor("", "client")}, {}, Asking},
        {"name: none of the client", {AskFor("service", "")}, {}, Asking},
        {"name: too long", {AskFor(std::string(256, 's'))}, {}, Asking},
        {"name: too long a client's", {AskFor("service", std::string(65, 'c'))}, {}, Asking},
        {"name: not printable", {AskFor("ser\nvice")}, {}, Asking},
        {"name: longer than told", {AskFor("service", "client", 1)}, {}, Asking},
    };
    for (const auto& [what, descriptor] : foreign)
    {
        rows.push_back({std::string("arena: ") + what,
                        {Packet{.flags = 1, .arenaBytes = 70000}},
                        {descriptor.Get()}});
        rows.push_back({std::string("handle: ") + what,
                        {Packet{.handles = 1, .mask = 1}},
                        {descriptor.Get()}});
    }
    for (const Row& row : rows)
    {
        const auto misbehave = [&row](Loot&)
        {
            for (int i = 0; i < 50 && !HasFailure(); ++i)
            {
                const RawSocket raw = RawSocket::ConnectedTo(row.place);
                for (const std::string& packet : row.packets)
                {
                    raw.Send(packet, row.descriptors);
                }
                while (!raw.Read().empty())
                {}
            }
        };
        Suffer({row.what, misbehave, 1});
    }
}

/// Connects so many times and keeps the connections.
auto Crowding(const std::string& place, int count, const std::string& words = "")
{
    return [=](Loot& loot)
    {
        for (int i = 0; i < count; ++i)
        {
            Open(loot, place, words);
        }
    };
}

auto DroppingInALoop(const std::string& place)
{
    return [=](Loot&)
    {
        for (int i = 0; i < 3000; ++i)
        {
            RawSocket::ConnectedTo(place);
        }
    };
}

void BeDeaf(Loot& loot)
{
    Packet packet{.arena = std::string(60000, 'x')};
    for (const RawSocket& raw = Open(loot, Direct); raw.TrySend(packet);)
    {
        ++packet.sequence;
    }
}

void SpeakTwice(Loot& loot)
{
    const RawSocket& raw = Open(loot, Asking, AskFor("nothing"));
    raw.Send(AskFor("nothing"));
    EXPECT_EQ(raw.Read(), "");
}

void StaySilentUntilClosed(Loot& loot)
{
    const auto start = Clock::now();
    Crowding(Asking, 1000)(loot);
    for (const RawSocket& raw : loot)
    {
        EXPECT_EQ(raw.Read(), "");
    }
    EXPECT_GT(Clock::now() - start, milliseconds(5000)) << "nobody waits for the last places";
}

/// Dies when it has said these words, or when an answer to them has come.
auto Dying(const std::string& place, const std::string& words, bool answered = false)
{
    return [=](Loot& loot)
    {
        const RawSocket& raw = Open(loot, place, words);
        if (answered)
        {
            raw.Await();
        }
        ::raise(SIGKILL);
    };
}

TEST_F(Hostile, ClientsThatHoldOnOrDieHurtNobody)
{
    rlimit limit{};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    if (limit.rlim_cur < 3000)
    {
        GTEST_SKIP() << "too few descriptors";
    }
    const std::string ask = AskFor(ServerProcess::Service);
    const std::string kill = Packet{.mid = ServerProcess::KillCaller};
    const std::vector<Offender> rows{
        {"made and dropped in a tight loop", DroppingInALoop(Direct)},
        {"never reads its replies", BeDeaf, 1},
        {"speaks again before the verdict", SpeakTwice, 1},
        {"200 ask for what nobody offers", Crowding(Asking, 200, AskFor("nothing"))},
        {"1000 do not say what they want", StaySilentUntilClosed, 1},
        {"all descriptors are used", Crowding(Direct, 40, Sound), 1, 0, 20},
        {"all descriptors are used by silent ones", Crowding(Asking, 40), 1, 0, 20},
        {"killed when it has asked", Dying(Asking, ask), 0, -SIGKILL},
        {"killed when it has called", Dying(Direct, Sound), 0, -SIGKILL},
        {"killed while it is served", Dying(Direct, kill, true), 0, -SIGKILL},
        {"killed when its reply has come", Dying(Direct, Sound, true), 0, -SIGKILL},
    };
    for (const Offender& row : rows)
    {
        Suffer(row);
    }
}

TEST_F(Hostile, WithoutMemoryNobodyHangsOrGetsAWrongAnswer)
{
    const ServerProcess server;
    Client innocent(ServerProcess::Name);
    ServerProcess::ExpectServed(innocent.transport, ServerProcess::BeWithoutMemory);
    for (int i = 0; i < 20; ++i)
    {
        Client newcomer(ServerProcess::Name);
        Letter request;
        request.bytes[79] = 9;
        Letter response;
        const int result = Call(newcomer.transport, request, response);
        EXPECT_TRUE(result == XoOk ? response.bytes[79] == 9 : result == XoObjectGone) << result;
    }
    EXPECT_EQ(Connect(ServerProcess::Entity, "offered").result, XoObjectGone);
}

TEST_F(Hostile, AFloodOfConnectionsDoesNotHoldTheReceiver)
{
    Endpoint endpoint(ServerProcess::Name);
    Child flood(
        []
        {
            for (Loot loot;;)
            {
                DroppingInALoop(Direct)(loot);
            }
            return 0;
        });
    WzTvoSetTransportTimeouts(&endpoint.transport, 50, 0);
    for (int i = 0; i < 5; ++i)
    {
        Letter request;
        const auto start = Clock::now();
        EXPECT_EQ(Receive(endpoint.transport, request), WzTimedOut);
        EXPECT_LT(Clock::now() - start, milliseconds(3000));
    }
}

/// A server in a process of its own that listens and then does as it likes.
struct HostileServer
{
    std::string what;
    int expected;  ///< with one line when it is `XoBroken`
    std::function<void(const RawSocket& listening)> misbehave;
    std::uint32_t limit = ServerProcess::Bound;
};

void Face(const std::vector<HostileServer>& rows,
          const std::string& place,
          int (*call)(std::uint32_t limit))
{
    for (const HostileServer& row : rows)
    {
        SCOPED_TRACE(row.what);
        const auto face = [&]
        {
            const Signal ready;
            Child server(
                [&]
                {
                    const RawSocket listening = RawSocket::ListeningAs(place);
                    ready.Give();
                    row.misbehave(listening);
                    return 0;
                });
            ready.Await();
            EXPECT_EQ(call(row.limit), row.expected);
            server.Wait();
        };
        ExpectLines(row.expected == XoBroken ? 1 : 0, face);
    }
    ::unlink(SocketPath(place).c_str());
}

/// Answers what the client says with a packet and descriptors.
auto Answering(const std::string& packet, const std::vector<int>& descriptors = {})
{
    return [=](const RawSocket& listening)
    {
        const RawSocket server = listening.Accept();
        EXPECT_GT(server.Read().size(), sizeof(Frame));
        server.Send(packet, descriptors);
        server.Read();
    };
}

auto Replying(Packet packet, const std::vector<int>& descriptors = {})
{
    packet.kind = FrameKind::Reply;
    return Answering(packet, descriptors);
}

void BeSilent(const RawSocket& listening)
{
    const RawSocket server = listening.Accept();
    while (!server.Read().empty())
    {}
}

auto DyingAfter(int steps, const std::string& words = "")
{
    return [=](const RawSocket& listening)
    {
        listening.Await();
        const RawSocket server = steps > 0 ? listening.Accept() : RawSocket();
        EXPECT_TRUE(steps < 2 || !server.Read().empty());
        EXPECT_TRUE(words.empty() || server.TrySend(words));
        ::raise(SIGKILL);
    };
}

TEST_F(Hostile, ServersCostTheirClientOneCall)
{
    const auto foreign = MakeForeignDescriptors();
    const int zero = foreign.back().second.Get();
    const Descriptor large = MakeArenaFile(std::vector<unsigned char>(90000).data(), 90000);
    std::vector<HostileServer> rows{
        {"sound", XoOk, Replying({})},
        {"garbage", XoBroken, Answering("garbage")},
        {"a request", XoBroken, Answering(Sound)},
        {"to a call not made yet", XoBroken, Replying({.sequence = 2})},
        {"a larger arena than was sent", XoBroken, Replying({.arenaBytes = 9})},
        {"arena too large", XoBroken, Replying({.flags = 1, .arenaBytes = 90000}, {large.Get()})},
        {"handle beyond the count", XoBroken, Replying({.handles = 1, .mask = 2}, {zero})},
        {"silent", WzTimedOut, BeSilent, 100},
        {"killed before it accepts", XoObjectGone, DyingAfter(0)},
        {"killed before it replies", XoObjectGone, DyingAfter(2)},
        {"killed after its reply", XoOk, DyingAfter(2, Reply)},
    };
    for (const auto& [what, descriptor] : foreign)
    {
        rows.push_back(
            {what, XoBroken, Replying({.flags = 1, .arenaBytes = 70000}, {descriptor.Get()})});
    }
    const auto call = [](std::uint32_t limit)
    {
        Client client("rude");
        WzTvoSetTransportTimeouts(&client.transport, 0, limit);
        Letter request;
        Letter response(80, 80000);
        const int result = Call(client.transport, request, response);
        const bool broken = result == XoBroken;
        EXPECT_TRUE(!broken || Call(client.transport, request, response) == XoObjectGone);
        return result;
    };
    Face(rows, "connections/rude", call);
}

TEST_F(Hostile, ServersInTheHandshakeGiveACode)
{
    const std::vector<HostileServer> rows{
        {"garbage", XoBroken, Answering("garbage")},
        {"a code with a meaning", XoRefused, Answering(Verdict(-11))},
        {"silent", XoTimedOut, BeSilent, 100},
        {"killed before it reads", XoObjectGone, DyingAfter(1)},
        {"killed before its verdict", XoObjectGone, DyingAfter(2)},
    };
    Face(rows,
         "servers/rude",
         [](std::uint32_t limit) { return Connect("rude", "service", limit).result; });
}

TEST_F(Hostile, LateRepliesAreOnePerAbandonedCall)
{
    const RawSocket listening = RawSocket::ListeningAs("connections/late");
    Client client("late");
    const RawSocket server = listening.Accept();
    WzTvoSetTransportTimeouts(&client.transport, 0, 0);
    Letter request;
    Letter response;
    EXPECT_EQ(Call(client.transport, request, response), WzTimedOut);
    server.Send(Reply);
    server.Send(Reply);
    EXPECT_EQ(Call(client.transport, request, response), XoBroken);
    ::unlink(SocketPath("connections/late").c_str());
}

TEST_F(Hostile, AForeignSetterCanOnlySetBits)
{
    int ends[2];
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends), 0);
    const RawSocket setter(ends[0]);
    const std::uint32_t handle =
        HandleTable::Instance().Add(EventWaiter::FromForeign(Descriptor(ends[1])));
    SNotice* notice = nullptr;
    ASSERT_EQ(XoNoticeCreate(&notice), XoOk);
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, handle, ~0U, 1), XoOk);
    const std::uint32_t bits[] = {XoEventClosed, 0x10000};
    const std::string masks(reinterpret_cast<const char*>(bits), sizeof bits);
    for (const std::string& packet : {std::string("xyz"), masks, masks.substr(0, 4)})
    {
        setter.Send(packet);
    }
    EXPECT_EQ(NextEvent(notice, 20).first, XoTimedOut);
    setter.Send(masks.substr(4));
    EXPECT_EQ(NextEvent(notice).second.events, bits[1]);
    XoNoticeRelease(notice);
    EXPECT_EQ(XoHandleClose(handle), XoOk);
}

TEST(OffenceFilter, TellsTheFirstLineAndThenOneAnInterval)
{
    OffenceFilter filter;
    const auto start = OffenceFilter::Clock::now();
    EXPECT_EQ(filter.Admit(1, start), 0U);
    EXPECT_EQ(filter.Admit(2, start), 0U);
    EXPECT_EQ(filter.Admit(1, start), std::nullopt);
    EXPECT_EQ(filter.Admit(1, start + OffenceFilter::Interval), 1U);
    EXPECT_EQ(filter.Admit(2, start + OffenceFilter::Interval), 0U);
    for (std::uint32_t pid = 3; pid < 100; ++pid)
    {
        EXPECT_EQ(filter.Admit(pid, start + OffenceFilter::Interval), 0U);
    }
}

}  // namespace
}  // namespace platform::tests
