// Partners that keep to no rules: each costs itself its connection and one log line, and nobody
// else anything.

#include <future>

#include <sys/mman.h>

#include "arena_file.h"
#include "handshake.h"
#include "linux_support.h"

namespace platform::tests {
namespace {

using Hostile = LinuxTest;

std::string RequestWith(std::uint64_t sequence, std::uint64_t acknowledged)
{
    RawPacket packet;
    packet.frame.sequence = sequence;
    packet.frame.acknowledged = acknowledged;
    return packet.Bytes();
}

std::string RequestWithArenaFile(std::uint32_t bytes)
{
    RawPacket packet;
    packet.frame.flags = FrameArenaInFile;
    packet.frame.arenaBytes = bytes;
    return packet.Bytes();
}

std::string RequestWithHandle()
{
    RawPacket packet;
    packet.SetSizeWord(80 | 1U << 23);
    packet.frame.handleMask = 1;
    return packet.Bytes();
}

/// A file in memory of this size, unsealed.
Descriptor MakeFile(off_t size)
{
    Descriptor file(::memfd_create("test", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    EXPECT_EQ(::ftruncate(file.Get(), size), 0);
    return file;
}

Descriptor MakeSealed(std::size_t size)
{
    const std::vector<unsigned char> bytes(size);
    return MakeArenaFile(bytes.data(), size);
}

TEST_F(Hostile, ClientsAreCutOffAndNobodyElseNotices)
{
    const Descriptor unsealed = MakeFile(70000);
    const Descriptor shortFile = MakeSealed(69999);
    const Descriptor longFile = MakeSealed(70001);
    const Descriptor null(::open("/dev/null", O_RDWR | O_CLOEXEC));
    const std::vector<int> many(20, null.Get());
    struct Row
    {
        const char* what;
        std::vector<std::string> packets;
        std::vector<int> descriptors = {};
    };
    RawPacket largeArena;
    largeArena.arena.resize(65536);
    largeArena.frame.arenaBytes = 65536;
    const std::vector<Row> rows{
        {"garbage", {"garbage"}},
        {"random bytes", {std::string(5000, '\xA5')}},
        {"an empty packet", {""}},
        {"longer than any packet", {std::string(80'000, 'x')}},
        {"cut", {RawPacket().Bytes().substr(0, 100)}},
        {"a reply", {RawPacket(FrameKind::Reply).Bytes()}},
        {"a handshake", {RawPacket(FrameKind::Connect).Bytes()}},
        {"larger than the server's buffer", {RawPacket(FrameKind::Request, 4096).Bytes()}},
        {"an arena larger than the server's", {largeArena.Bytes()}},
        {"sequence zero", {RequestWith(0, 0)}},
        {"a sequence twice", {RequestWith(5, 0), RequestWith(5, 0)}},
        {"a sequence that falls", {RequestWith(5, 0), RequestWith(4, 0)}},
        {"an answer that was never sent", {RequestWith(5, 4)}},
        {"a descriptor nobody asked for", {RawPacket().Bytes()}, {null.Get()}},
        {"twenty descriptors", {RawPacket().Bytes()}, many},
        {"a handle nobody asked for", {RequestWithHandle()}, {null.Get()}},
        {"an arena file that is none", {RequestWithArenaFile(70000)}, {null.Get()}},
        {"an arena file that can change", {RequestWithArenaFile(70000)}, {unsealed.Get()}},
        {"an arena file that is too short", {RequestWithArenaFile(70000)}, {shortFile.Get()}},
        {"an arena file that is too long", {RequestWithArenaFile(70000)}, {longFile.Get()}},
        {"no arena file", {RequestWithArenaFile(70000)}},
    };
    LogLines log;
    Endpoint endpoint("hostile");
    // Takes what comes with a small buffer and no room for handles, and never answers.
    auto serving = std::async(std::launch::async,
                              [handle = endpoint.handle]
                              {
                                  WzTvoTransport transport = MakeTransport(handle, WzInfinite);
                                  Letter request(80, 70000);
                                  int result = XoOk;
                                  while (result != XoObjectGone)
                                  {
                                      request.Head().size = 80;
                                      request.arena.end = request.arena.start +
                                                          (request.bytes[24] == 1 ? 0 : 60000);
                                      result = Receive(transport, request);
                                      if (result == XoOk && request.bytes[24] == 9)
                                      {
                                          Reply(transport, request);
                                      }
                                  }
                              });
    Client innocent("hostile");
    std::size_t offences = 0;
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.what);
        RawSocket raw = RawSocket::ConnectedTo("connections/hostile");
        for (const std::string& packet : row.packets)
        {
            raw.Send(packet, row.descriptors);
        }
        EXPECT_EQ(raw.Read(), "");
        EXPECT_EQ(log.Count("uid"), ++offences);
        EXPECT_EQ(log.Count("pid " + std::to_string(::getpid())), offences);
        Letter request;
        request.bytes[24] = 9;
        Letter response;
        EXPECT_EQ(Call(innocent.transport, request, response), XoOk);
    }
    XoHandleClose(endpoint.handle);
    serving.get();
}

TEST_F(Hostile, AHandleThatIsNoEventObjectCostsTheConnection)
{
    LogLines log;
    Endpoint endpoint("wrong-handle");
    RawSocket raw = RawSocket::ConnectedTo("connections/wrong-handle");
    const Descriptor null(::open("/dev/null", O_RDWR | O_CLOEXEC));
    raw.Send(RequestWithHandle(), {null.Get()});
    WzTvoSetTransportTimeouts(&endpoint.transport, 20, 0);
    Letter request;
    request.SetHandles(1);
    EXPECT_EQ(Receive(endpoint.transport, request), WzTimedOut);
    EXPECT_EQ(raw.Read(), "");
    EXPECT_EQ(log.Count("no event object"), 1U);
}

TEST_F(Hostile, AFloodOfBrokenFramesDoesNotHoldTheReceiver)
{
    LogLines log;
    Endpoint endpoint("flood");
    WzTvoSetTransportTimeouts(&endpoint.transport, 50, 0);
    std::atomic<bool> stop = false;
    std::thread flood(
        [&]
        {
            const sockaddr_un address = AddressOf("connections/flood");
            while (!stop)
            {
                // Fails while the backlog is full.
                const RawSocket raw(
                    ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
                const auto* generic = reinterpret_cast<const sockaddr*>(&address);
                if (::connect(raw.Get(), generic, sizeof address) == 0)
                {
                    ::send(raw.Get(), "x", 1, MSG_NOSIGNAL);
                }
            }
        });
    Letter request;
    const auto start = Clock::now();
    EXPECT_EQ(Receive(endpoint.transport, request), WzTimedOut);
    EXPECT_LT(Clock::now() - start, milliseconds(5000));
    stop = true;
    flood.join();
}

TEST_F(Hostile, ACallerThatDoesNotReadLosesItsConnection)
{
    LogLines log;
    Endpoint endpoint("deaf");
    RawSocket raw = RawSocket::ConnectedTo("connections/deaf");
    Letter request(80, 60000);
    Letter response(80, 60000);
    response.arena.current = response.arena.end;
    int result = XoOk;
    for (std::uint64_t sequence = 1; result == XoOk && sequence < 100; ++sequence)
    {
        raw.Send(RequestWith(sequence, 0));
        request.Head().size = 80;
        ASSERT_EQ(Receive(endpoint.transport, request), XoOk);
        result = Reply(endpoint.transport, response);
    }
    EXPECT_EQ(result, XoObjectGone);
    EXPECT_EQ(log.Count("does not read"), 1U);
}

TEST_F(Hostile, ServersThatAnswerNonsenseCostTheirClientOneCall)
{
    const auto reply = [](std::uint64_t sequence)
    {
        RawPacket packet(FrameKind::Reply);
        packet.frame.sequence = sequence;
        return packet.Bytes();
    };
    struct Row
    {
        const char* what;
        std::vector<std::string> packets;
        int expected;
    };
    RawPacket tooLarge(FrameKind::Reply, 81);
    tooLarge.frame.sequence = 1;
    for (const Row& row : {Row{"sound", {reply(1)}, XoOk},
                           Row{"garbage", {"garbage"}, XoBroken},
                           Row{"empty", {""}, XoBroken},
                           Row{"a request", {RawPacket().Bytes()}, XoBroken},
                           Row{"to a call not made yet", {reply(2)}, XoBroken},
                           Row{"to no call", {reply(0)}, XoBroken},
                           Row{"too large", {tooLarge.Bytes()}, XoBroken}})
    {
        SCOPED_TRACE(row.what);
        LogLines log;
        const RawSocket listening = RawSocket::ListeningAs("connections/nonsense");
        Client client("nonsense");
        const RawSocket server = listening.Accept();
        auto calling = std::async(std::launch::async,
                                  [&]
                                  {
                                      Letter request;
                                      Letter response;
                                      return Call(client.transport, request, response);
                                  });
        EXPECT_EQ(server.Read().size(), sizeof(Frame) + 80);
        for (const std::string& packet : row.packets)
        {
            server.Send(packet);
        }
        EXPECT_EQ(calling.get(), row.expected);
        EXPECT_EQ(log.Count(), row.expected == XoOk ? 0U : 1U);
        ::unlink(SocketPath("connections/nonsense").c_str());
    }
}

TEST_F(Hostile, LateRepliesAreOnePerAbandonedCall)
{
    LogLines log;
    const RawSocket listening = RawSocket::ListeningAs("connections/late");
    Client client("late");
    const RawSocket server = listening.Accept();
    WzTvoSetTransportTimeouts(&client.transport, 0, 0);
    Letter request;
    Letter response;
    EXPECT_EQ(Call(client.transport, request, response), WzTimedOut);
    RawPacket late(FrameKind::Reply);
    server.Send(late.Bytes());
    server.Send(late.Bytes());
    EXPECT_EQ(Call(client.transport, request, response), XoBroken);
    EXPECT_EQ(log.Count("more replies than calls"), 1U);
    ::unlink(SocketPath("connections/late").c_str());
}

TEST_F(Hostile, ServersThatMisbehaveInTheHandshakeGiveACode)
{
    struct Row
    {
        const char* what;
        std::function<void(RawSocket&)> answer;
        int expected;
    };
    for (const Row& row :
         {Row{"gone", [](RawSocket& server) { server.Close(); }, XoObjectGone},
          Row{"garbage", [](RawSocket& server) { server.Send("garbage"); }, XoBroken},
          Row{"a code with a meaning",
              [](RawSocket& server) { SendVerdict(server.Get(), -11, 1); },
              XoRefused},
          Row{"gone, it says",
              [](RawSocket& server) { SendVerdict(server.Get(), XoObjectGone, 1); },
              XoRefused},
          Row{"silent", [](RawSocket&) {}, XoTimedOut}})
    {
        SCOPED_TRACE(row.what);
        LogLines log;
        const RawSocket listening = RawSocket::ListeningAs("servers/rude");
        auto connecting = std::async(std::launch::async,
                                     []
                                     {
                                         std::uint32_t handle = 0;
                                         std::uint32_t riid = 0;
                                         return XoCmConnect("rude", "service", 200, &handle, &riid);
                                     });
        RawSocket server = listening.Accept();
        EXPECT_GT(server.Read().size(), sizeof(Frame));
        row.answer(server);
        EXPECT_EQ(connecting.get(), row.expected);
        ::unlink(SocketPath("servers/rude").c_str());
    }
}

TEST_F(Hostile, AForeignSetterCanOnlySetBits)
{
    int ends[2];
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends), 0);
    RawSocket setter(ends[0]);
    Descriptor waiter(ends[1]);
    Endpoint endpoint("setter");
    RawSocket raw = RawSocket::ConnectedTo("connections/setter");
    raw.Send(RequestWithHandle(), {waiter.Get()});
    waiter.Reset();
    Letter request;
    request.SetHandles(1);
    ASSERT_EQ(Receive(endpoint.transport, request), XoOk);
    const std::uint32_t handle = request.Slot(0).handle;
    SNotice* notice = nullptr;
    ASSERT_EQ(XoNoticeCreate(&notice), XoOk);
    ASSERT_EQ(XoNoticeSubscribeToObject(notice, handle, ~0U, 1), XoOk);
    EventDesc event{};
    unsigned long received = 0;
    setter.Send("xyz");
    setter.Send("a longer text");
    const std::uint32_t closedBit = XoEventClosed;
    setter.Send(std::string(reinterpret_cast<const char*>(&closedBit), sizeof closedBit));
    EXPECT_EQ(XoNoticeGetEvent(notice, 20, 1, &event, &received), XoTimedOut);
    const std::uint32_t bits = 0x10000;
    setter.Send(std::string(reinterpret_cast<const char*>(&bits), sizeof bits));
    ASSERT_EQ(XoNoticeGetEvent(notice, 5000, 1, &event, &received), XoOk);
    EXPECT_EQ(event.events, bits);
    XoNoticeRelease(notice);
    EXPECT_EQ(XoHandleClose(handle), XoOk);
}

}  // namespace
}  // namespace platform::tests
