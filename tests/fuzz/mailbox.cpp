#include "mailbox.h"

#include <algorithm>
#include <cstring>

#include <event_object.h>
#include <handle_table.h>
#include <transfer.h>

#include <xo/handle.h>

#include "fuzz_target.h"

namespace fuzz {
namespace {

using platform::Frame;

constexpr unsigned char Fence = 0xA5;
constexpr std::size_t FenceBytes = 64;
constexpr std::size_t ArenaStep = 256;

std::size_t ArenaRoomOf(std::uint8_t steps)
{
    return steps == 0xFF ? platform::MaxArenaBytes : steps * ArenaStep;
}

bool IsFence(unsigned char byte)
{
    return byte == Fence;
}

/// One for all mailboxes: new memory for each costs most of the time.
unsigned char* ArenaBuffer()
{
    static std::array<unsigned char, platform::MaxArenaBytes + FenceBytes> buffer;
    return buffer.data();
}

/// A handle of an event object, open as long as the process.
std::uint32_t EventHandle()
{
    static const std::uint32_t Handle =
        platform::HandleTable::Instance().Add(std::make_shared<platform::EventWaiter>(
            platform::Descriptor(::dup(DescriptorOf(Attachment::EventObject)))));
    return Handle;
}

}  // namespace

void Mailbox::OpenWhatStays()
{
    static_cast<void>(EventHandle());
}

Mailbox::Mailbox(Input& input)
    : m_room{std::clamp<std::size_t>(input.Word(), sizeof(wz_message), platform::MaxMessageBytes),
             ArenaRoomOf(input.Byte()),
             input.Byte() % (platform::MaxHandles + 1)},
      m_arenaBytes(ArenaBuffer())
{
    m_message.fill(Fence);
    std::fill_n(m_arenaBytes + m_room.arena, FenceBytes, Fence);
    Arm();
}

void Mailbox::Arm()
{
    Message()->size =
        static_cast<std::uint32_t>(m_room.message | m_room.handles << WzMessageHandleCountShift);
    unsigned char* const start = m_arenaBytes;
    m_arena = {start, start, start + m_room.arena};
}

bool Mailbox::HasRoomFor(const std::string& packet) const
{
    const auto* const bytes = reinterpret_cast<const unsigned char*>(packet.data());
    const Frame frame = FrameOf(packet);
    return frame.messageBytes <= m_room.message && frame.arenaBytes <= m_room.arena &&
           platform::HandleCount(platform::MessageHeader(bytes)) <= m_room.handles;
}

void Mailbox::RequireFences() const
{
    const auto* const messageEnd = m_message.data() + m_room.message;
    Require(std::all_of(messageEnd, m_message.data() + m_message.size(), &IsFence),
            "a message keeps to its room");
    const auto* const arenaEnd = m_arenaBytes + m_room.arena;
    Require(std::all_of(arenaEnd, arenaEnd + FenceBytes, &IsFence), "an arena keeps to its room");
}

void Mailbox::RequireDelivered(const Parcel& parcel)
{
    const std::string& packet = parcel.bytes;
    const Frame frame = FrameOf(packet);
    Require(HasRoomFor(packet), "what was delivered has room");
    const std::string_view sent = std::string_view(packet).substr(sizeof frame);
    const std::size_t slots = platform::HandleCount(*Message());
    const std::size_t slotsEnd = sizeof(wz_message) + slots * sizeof(wz_handle_slot);
    Require(slotsEnd <= frame.messageBytes, "the slots lie in the message");

    const auto* const got = reinterpret_cast<const char*>(m_message.data());
    Require(std::equal(got, got + sizeof(wz_message), sent.data()), "the header is what was sent");
    Require(std::equal(got + slotsEnd, got + frame.messageBytes, sent.data() + slotsEnd),
            "the fields are what was sent");
    Require(
        std::all_of(
            got + frame.messageBytes, got + m_room.message, [](char byte) { return byte == '\0'; }),
        "zeros follow the message");
    RequireHandles(parcel, slots);
    if (m_room.arena == 0)
    {
        return;
    }
    Require(m_arena.current == m_arena.start + frame.arenaBytes,
            "the arena ends where it was sent");
    const bool isFile = (frame.flags & platform::FrameArenaInFile) != 0;
    const std::string_view arena =
        isFile ? ArenaFileText(frame.arenaBytes) : sent.substr(frame.messageBytes);
    Require(std::equal(arena.begin(),
                       arena.end(),
                       reinterpret_cast<const char*>(m_arena.start),
                       reinterpret_cast<const char*>(m_arena.current)),
            "the arena is what was sent");
}

void Mailbox::RequireHandles(const Parcel& parcel, std::size_t count)
{
    const Frame frame = FrameOf(parcel.bytes);
    Require(frame.handleMask >> count == 0, "a handle has its slot");
    const wz_handle_slot* const slots = platform::HandleSlots(static_cast<void*>(Message()));
    for (std::size_t i = 0; i < count; ++i)
    {
        const bool isFilled = (frame.handleMask >> i & 1U) != 0;
        Require(isFilled ? XoHandleClose(slots[i].handle) == XoOk
                         : slots[i].handle == WzNoHandleInMessage,
                "a filled slot, and no other, brings a handle");
    }
    const std::size_t files = (frame.flags & platform::FrameArenaInFile) != 0 ? 1 : 0;
    for (std::size_t i = files; i < parcel.attachments.size(); ++i)
    {
        Require(parcel.attachments[i] == Attachment::EventObject, "a handle is an event object's");
    }
}

std::string Rooms(std::uint16_t message, std::uint8_t arena, std::uint8_t handles)
{
    return {static_cast<char>(message & 0xFFU),
            static_cast<char>(message >> 8U),
            static_cast<char>(arena),
            static_cast<char>(handles)};
}

bool SendHonestly(Input& input, const Honest& honest, int socket)
{
    alignas(16) std::array<unsigned char, platform::MaxMessageBytes> bytes{};
    const std::size_t messageBytes = input.Word() % (platform::MaxMessageBytes + 1);
    const std::uint8_t mask = input.Byte();
    const std::uint8_t arenaSteps = input.Byte();
    const std::string_view fields = input.Bytes(input.Byte());
    std::copy_n(fields.begin(), std::min(fields.size(), messageBytes), bytes.begin());

    auto* const message = reinterpret_cast<wz_message*>(bytes.data());
    const auto count = static_cast<std::uint32_t>(std::bit_width(mask));
    message->size = static_cast<std::uint32_t>(messageBytes) | count << WzMessageHandleCountShift;
    wz_handle_slot* const slots = platform::HandleSlots(static_cast<void*>(message));
    for (std::size_t i = 0; i < count; ++i)
    {
        slots[i].handle = (mask >> i & 1U) != 0 ? EventHandle() : WzNoHandleInMessage;
    }
    const std::string_view text = ArenaFileText(2 * ArenaRoomOf(arenaSteps));
    auto* const start = reinterpret_cast<unsigned char*>(const_cast<char*>(text.data()));
    const wz_arena arena{start, start + text.size(), start + text.size()};

    platform::OutgoingMessage outgoing;
    const bool isRequest = honest.kind == platform::FrameKind::Request;
    const auto role = isRequest ? platform::MessageRole::Request : platform::MessageRole::Response;
    return outgoing.Prepare(role, message, &arena) == XoOk &&
           outgoing.Send(socket, honest.kind, honest.sequence, honest.acknowledged) ==
               platform::Departure::Sent;
}

}  // namespace fuzz
