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

/// What of a packet is put right before it is sent, so that inputs get past the first checks.
enum Mending : std::uint8_t
{
    MendNumbers = 1,  ///< magic, kind, sequence
    MendSizes = 2,
    MendAll = 3,
};

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

void Mend(std::string& packet, std::uint8_t mending, FrameKind kind, std::uint64_t sequence)
{
    if (packet.size() < sizeof(Frame) + sizeof(wz_message))
    {
        return;
    }
    Frame frame = FrameOf(packet);
    if ((mending & MendNumbers) != 0)
    {
        frame = {platform::FrameMagic,
                 kind,
                 frame.handleMask,
                 static_cast<std::uint16_t>(frame.flags & platform::FrameArenaInFile),
                 sequence,
                 0,
                 frame.messageBytes,
                 frame.arenaBytes};
    }
    if ((mending & MendSizes) != 0)
    {
        const auto behind = static_cast<std::uint32_t>(packet.size() - sizeof frame);
        const std::uint32_t least = sizeof(wz_message);
        frame.messageBytes = std::clamp(frame.messageBytes, least, behind);
        frame.arenaBytes = behind - frame.messageBytes;
        if ((frame.flags & platform::FrameArenaInFile) != 0)
        {
            packet.resize(sizeof frame + frame.messageBytes);
            frame.arenaBytes = platform::MaxInlineArena + 1;
        }
        std::uint32_t word = 0;
        char* const place = packet.data() + sizeof frame + offsetof(wz_message, size);
        std::memcpy(&word, place, sizeof word);
        word = (word & ~WzMessageSizeMask) | frame.messageBytes;
        std::memcpy(place, &word, sizeof word);
    }
    std::memcpy(packet.data(), &frame, sizeof frame);
}

/// A socket's other end, which sends what the input says.
class Sender
{
public:
    explicit Sender(Input& input) : m_input(input)
    {
        int ends[2];
        Require(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) == 0,
                "sockets can be made");
        m_socket = RawSocket(ends[0]);
        receiver.Reset(ends[1]);
    }

    /// @returns the packet
    std::string Send(FrameKind kind, std::uint64_t sequence) const
    {
        const std::uint8_t mending = m_input.Byte();
        std::vector<int> attachments(MostAttachments, AttachmentOf(m_input.Byte()));
        attachments[0] = AttachmentOf(m_input.Byte());
        attachments.resize(m_input.Byte() % (MostAttachments + 1));
        std::string packet(m_input.Bytes(m_input.Word()));
        Mend(packet, mending, kind, sequence);
        m_socket.TrySend(packet, attachments);
        return packet;
    }

    Descriptor receiver;

private:
    Input& m_input;
    RawSocket m_socket{-1};
};

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
    Sender client(input);
    platform::ServerConnection connection(7, std::move(client.receiver), {});
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
        const std::string packet = client.Send(FrameKind::Request, received + 1);
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
    Sender server(input);
    platform::ClientConnection connection(
        std::move(server.receiver), {}, platform::Place::Servers, "server");
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
        const std::string packet = server.Send(FrameKind::Reply, calls);
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
    Sender sender(input);
    const FrameKind kind = input.Byte() % 2 == 0 ? FrameKind::Connect : FrameKind::Verdict;
    const std::string packet = sender.Send(kind, 1);
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

std::string Word(std::size_t value)
{
    return {static_cast<char>(value & 0xFFU), static_cast<char>(value >> 8U)};
}

/// A packet as `Sender` reads it, sound once it is mended.
/// @param attachments  their kinds, then how many there are
std::string Seed(const std::string& packet, const std::string& attachments = std::string(3, '\0'))
{
    return std::string(1, MendAll) + attachments + Word(packet.size()) + packet;
}

std::vector<std::string> Seeds()
{
    using namespace std::string_literals;
    const std::string plain = Seed(Packet{.messageBytes = 24, .arena = "hello"});
    const std::string handles =
        Seed(Packet{.messageBytes = 48, .handles = 3, .mask = 5, .fields = {~0U, ~0U}}, "\0\0\2"s);
    const std::string pipe = Seed(Packet{.messageBytes = 40, .handles = 2, .mask = 3}, "\2\0\2"s);
    const std::string file = Seed(
        Packet{.messageBytes = 32, .handles = 1, .mask = 1, .flags = platform::FrameArenaInFile},
        "\0\1\2"s);
    const std::string crowd =
        Seed(Packet{.messageBytes = 88, .handles = 8, .mask = 0xFF}, "\0\0\x0B"s);
    std::vector<std::string> seeds{""};
    for (const std::string& reader : {"\0"s, "\1"s})
    {
        const std::string rooms = reader + Word(160) + "\x08" + Word(0x8000);
        const std::string small = reader + Word(24) + "\1" + Word(0);
        seeds.insert(seeds.end(),
                     {rooms + plain + plain + "raw",
                      rooms + handles + plain,
                      rooms + pipe,
                      rooms + file + file,
                      rooms + crowd,
                      small + plain,
                      small + handles});
    }
    for (const std::string& request :
         {platform::tests::AskFor("one", "two"), platform::tests::AskFor("a", "\n")})
    {
        seeds.push_back("\2\0"s + Seed(request));
        seeds.push_back("\2\1"s + Seed(request));
    }
    return seeds;
}

}  // namespace

const Target Packets{"packets", &Run, &Seeds};

}  // namespace fuzz
