#include <algorithm>
#include <array>
#include <cstring>

#include <arena_file.h>
#include <client_connection.h>
#include <handshake.h>
#include <linux_support.h>
#include <server_connection.h>

#include <wz/transport.h>
#include <xo/handle.h>

#include "fuzz_target.h"
#include "input.h"

namespace fuzz {
namespace {

using platform::Arrival;
using platform::Descriptor;
using platform::Frame;
using platform::FrameKind;
using platform::tests::CountDescriptors;
using platform::tests::Packet;
using platform::tests::RawSocket;

constexpr std::size_t MostAttachments = platform::MaxPacketDescriptors + 2;

/// What may come with a packet, open as long as the process: an event object's socket, a sealed
/// arena file, a pipe.
int AttachmentOf(std::uint8_t kind)
{
    static const auto Kinds = []
    {
        int sockets[2];
        int pipes[2];
        Require(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, sockets) == 0 &&
                    ::pipe(pipes) == 0,
                "descriptors can be made");
        const std::vector<unsigned char> arena(platform::MaxInlineArena + 1, 'f');
        return std::array{
            sockets[0], platform::MakeArenaFile(arena.data(), arena.size()).Release(), pipes[0]};
    }();
    return Kinds[kind % Kinds.size()];
}

Frame FrameOf(const std::string& packet)
{
    Frame frame;
    std::memcpy(&frame, packet.data(), sizeof frame);
    return frame;
}

/// How the input describes a packet; the arena's bytes follow.
struct Sent
{
    std::uint16_t place = 0xFFFF;  ///< of a byte that is changed, or, by 0, of the packet's cut end
    std::uint8_t change = 0;
    std::uint8_t attachments = 0;
    std::array<std::uint8_t, 2> kinds = {};  ///< of the first attachment and of all others
    std::uint8_t handles = 0;
    std::uint8_t mask = 0;
    std::uint16_t flags = 0;
    std::uint16_t messageBytes = 32;
    std::array<std::uint16_t, 2> fields = {7, 8};
    std::uint16_t arena = 0;
};

std::string MakePacket(const Sent& sent, Packet packet)
{
    packet.messageBytes = std::max<std::uint32_t>(sent.messageBytes, sizeof(wz_message));
    packet.handles = sent.handles;
    packet.mask = sent.mask;
    packet.flags = sent.flags;
    packet.fields = {sent.fields[0], sent.fields[1]};
    if (packet.flags == platform::FrameArenaInFile)
    {
        packet.arena.clear();
        packet.arenaBytes = platform::MaxInlineArena + 1;
    }
    std::string bytes = packet;
    if (sent.place < bytes.size())
    {
        bytes[sent.place] = static_cast<char>(bytes[sent.place] ^ sent.change);
        bytes.resize(sent.change == 0 ? sent.place : bytes.size());
    }
    return bytes;
}

std::pair<RawSocket, Descriptor> MakeSockets()
{
    int ends[2];
    Require(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) == 0,
            "sockets can be made");
    return {RawSocket(ends[0]), Descriptor(ends[1])};
}

/// Sends what the input says.
/// @returns the packet
std::string Send(Input& input, const RawSocket& socket, FrameKind kind, std::uint64_t sequence)
{
    const Sent sent = input.Take<Sent>();
    std::vector<int> attachments(MostAttachments, AttachmentOf(sent.kinds[1]));
    attachments[0] = AttachmentOf(sent.kinds[0]);
    attachments.resize(sent.attachments % (MostAttachments + 1));
    std::string arena(input.Bytes(sent.arena));
    const std::string packet =
        MakePacket(sent, {.kind = kind, .sequence = sequence, .arena = std::move(arena)});
    socket.TrySend(packet, attachments);
    return packet;
}

/// The buffers of a receiver, with a fence behind each.
class Mailbox
{
public:
    /// Takes the rooms from the input.
    explicit Mailbox(Input& input)
        : m_messageRoom(std::max<std::size_t>(input.Word() % (platform::MaxMessageBytes + 1),
                                              sizeof(wz_message))),
          m_handleRoom(input.Byte() % (platform::MaxHandles + 1)),
          m_message(m_messageRoom + FenceBytes, Fence),
          m_arenaBytes(2 * (input.Word() + FenceBytes), Fence)
    {}

    /// Makes the buffers ready for the next message.
    void Arm()
    {
        Message()->size =
            static_cast<std::uint32_t>(m_messageRoom | m_handleRoom << WzMessageHandleCountShift);
        arena.start = arena.current = m_arenaBytes.data();
        arena.end = m_arenaBytes.data() + m_arenaBytes.size() - FenceBytes;
    }

    wz_message* Message()
    {
        return reinterpret_cast<wz_message*>(m_message.data());
    }

    /// Nothing was written beyond the rooms.
    void RequireFences() const
    {
        for (const auto* buffer : {&m_message, &m_arenaBytes})
        {
            Require(std::count(buffer->end() - FenceBytes, buffer->end(), Fence) == FenceBytes,
                    "a message keeps to its room");
        }
    }

    /// The packet has come whole, and nothing else; closes its handles.
    void RequireDelivered(const std::string& packet)
    {
        const Frame frame = FrameOf(packet);
        const std::size_t slots = platform::HandleCount(*Message());
        const std::size_t slotsEnd = sizeof(wz_message) + slots * sizeof(wz_handle_slot);
        Require(slots <= m_handleRoom && slotsEnd <= frame.messageBytes &&
                    frame.messageBytes <= m_messageRoom,
                "what was delivered has room");
        const auto* const sent =
            reinterpret_cast<const unsigned char*>(packet.data()) + sizeof frame;
        const auto got = m_message.begin();
        Require(std::equal(sent, sent + sizeof(wz_message), got) &&
                    std::equal(sent + slotsEnd, sent + frame.messageBytes, got + Offset(slotsEnd)),
                "header and fields are what was sent");
        Require(std::count(got + frame.messageBytes, got + Offset(m_messageRoom), 0) ==
                    Offset(m_messageRoom) - frame.messageBytes,
                "zeros follow the message");
        Require(arena.current == arena.start + frame.arenaBytes &&
                    ((frame.flags & platform::FrameArenaInFile) != 0 ||
                     std::equal(arena.start, arena.current, sent + frame.messageBytes)),
                "the arena is what was sent");
        for (std::size_t i = 0; i < slots; ++i)
        {
            const std::uint32_t handle =
                platform::HandleSlots(static_cast<void*>(Message()))[i].handle;
            Require((frame.handleMask >> i & 1U) != 0 ? XoHandleClose(handle) == XoOk
                                                      : handle == WzNoHandleInMessage,
                    "a filled slot, and no other, brings a handle");
        }
    }

    wz_arena arena{};

private:
    static constexpr unsigned char Fence = 0xA5;
    static constexpr std::ptrdiff_t FenceBytes = 64;

    static std::ptrdiff_t Offset(std::size_t bytes)
    {
        return static_cast<std::ptrdiff_t>(bytes);
    }

    std::size_t m_messageRoom;
    std::size_t m_handleRoom;
    std::vector<unsigned char> m_message;
    std::vector<unsigned char> m_arenaBytes;
};

void ReadRequests(Input& input)
{
    Mailbox mailbox(input);
    auto [client, end] = MakeSockets();
    platform::ServerConnection connection(7, std::move(end), {});
    wz_message response{};
    response.size = sizeof response;
    std::uint64_t received = 0;
    using Debt = platform::ServerConnection::Debt;
    const auto answer = [&](Debt debt = Debt::Reply)
    {
        return connection.Answer(debt, received, &response, nullptr);
    };
    while (!input.HasEnded())
    {
        const std::string packet = Send(input, client, FrameKind::Request, received + 1);
        WzTvoOrigin origin{};
        int result = XoOk;
        mailbox.Arm();
        const Arrival arrival =
            connection.Receive(mailbox.Message(), &mailbox.arena, origin, result);
        mailbox.RequireFences();
        if (arrival != Arrival::Packet)
        {
            Require(arrival == Arrival::Broken, "a packet is delivered or broken");
            connection.End();
            Require(answer() == XoObjectGone, "nothing is answered after the end");
            return;
        }
        Require(origin.sequence > received, "sequence numbers rise");
        received = origin.sequence;
        mailbox.RequireDelivered(packet);
        auto debt = Debt::Reply;
        if (received % 2 == 0)
        {
            debt = Debt::Ticket;
            Require(connection.Detach(received) && !connection.Detach(received) &&
                        answer() == XoObjectGone,
                    "a detached request is its ticket's");
        }
        Require(answer(debt) == XoOk && answer(debt) == XoObjectGone, "an answer is given once");
    }
}

void ReadReplies(Input& input)
{
    Mailbox mailbox(input);
    auto [server, end] = MakeSockets();
    platform::ClientConnection connection(std::move(end), {}, platform::Place::Servers, "server");
    wz_message request{};
    request.size = sizeof request;
    const auto call = [&]
    {
        mailbox.Arm();
        return connection.Call(
            platform::Deadline(0), &request, nullptr, mailbox.Message(), &mailbox.arena);
    };
    for (std::uint64_t calls = 1; !input.HasEnded(); ++calls)
    {
        const std::string packet = Send(input, server, FrameKind::Reply, calls);
        const int result = call();
        mailbox.RequireFences();
        if (result != XoOk)
        {
            Require(result == WzTimedOut || call() == XoObjectGone, "no call follows the end");
            return;
        }
        Require(FrameOf(packet).sequence == calls, "a call gets its own reply");
        mailbox.RequireDelivered(packet);
    }
}

void ReadHandshake(Input& input)
{
    const FrameKind kind = input.Byte() % 2 == 0 ? FrameKind::Connect : FrameKind::Verdict;
    const std::string packet = Send(input, RawSocket(), kind, 1);
    const auto* const bytes = reinterpret_cast<const unsigned char*>(packet.data());
    const char* fault = nullptr;
    if (const auto request = platform::ParseConnect(bytes, packet.size(), 0, fault))
    {
        Require(!request->service.empty() && request->service.size() <= platform::MaxServiceName &&
                    !request->client.empty() && request->client.size() <= platform::MaxClientName,
                "names keep to their limits");
    }
    else
    {
        Require(fault != nullptr, "there is a request or a fault");
    }
    fault = nullptr;
    const bool isVerdict = platform::ParseVerdict(bytes, packet.size(), 0, fault).has_value();
    Require(isVerdict == (fault == nullptr), "there is a verdict or a fault");
}

/// The first byte tells who reads.
void Run(std::string_view bytes)
{
    static constexpr void (*Readers[])(Input&) = {&ReadRequests, &ReadReplies, &ReadHandshake};
    Input input(bytes);
    AttachmentOf(0);
    const std::size_t before = CountDescriptors();
    Readers[input.Byte() % std::size(Readers)](input);
    Require(CountDescriptors() == before, "every descriptor is closed");
}

std::string Seed(Sent sent, const std::string& arena = "")
{
    sent.arena = static_cast<std::uint16_t>(arena.size());
    return BytesOf(sent) + arena;
}

std::vector<std::string> Seeds()
{
    using namespace std::string_literals;
    const std::string plain = Seed({}, "hello");
    const Sent crowd{.attachments = 11, .handles = 8, .mask = 0xFF, .messageBytes = 152};
    const Sent pipe{.attachments = 2, .kinds = {0, 2}, .handles = 2, .mask = 3, .messageBytes = 56};
    Sent handles{.attachments = 2, .handles = 3, .mask = 5, .messageBytes = 80};
    const std::string file = Seed({.attachments = 2,
                                   .kinds = {1, 0},
                                   .handles = 1,
                                   .mask = 1,
                                   .flags = platform::FrameArenaInFile,
                                   .messageBytes = 40});
    std::vector<std::string> seeds{""};
    for (const std::string& reader : {"\0"s, "\1"s})
    {
        const std::string rooms = reader + "\xA0\0\x08\1\x80"s;
        const std::string small = reader + "\x18\0\1\0\0"s;
        for (const std::string& packets :
             {plain + plain, Seed(handles) + plain, Seed(pipe), file + file, Seed(crowd)})
        {
            seeds.push_back(rooms + packets);
            seeds.push_back(small + packets);
        }
        seeds.push_back(small + Seed({.messageBytes = 24}) + plain);
        for (std::uint8_t place = 0; place < sizeof(Frame) + sizeof(wz_message); ++place)
        {
            seeds.push_back(rooms + Seed({.place = place}));
            handles.place = place;
            handles.change = 1;
            seeds.push_back(rooms + plain + Seed(handles));
        }
        handles.place = 0xFFFF;
    }
    for (const std::string& name : {"two"s, "\n"s})
    {
        const Sent request{.fields = {3, static_cast<std::uint16_t>(name.size())}};
        seeds.push_back("\2\0"s + Seed(request, "one" + name));
        seeds.push_back("\2\1"s + Seed(request, "one" + name));
    }
    return seeds;
}

}  // namespace

const Target Packets{"packets", &Run, &Seeds};

}  // namespace fuzz
