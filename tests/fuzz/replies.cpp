#include <deque>

#include <client_connection.h>

#include <wz/transport.h>

#include "fuzz_target.h"
#include "mailbox.h"

namespace fuzz {
namespace {

using platform::Frame;
using platform::FrameKind;

/// What happens in one step of an input: parcels are sent, then a call is made that waits for
/// nothing.
enum Action : std::uint8_t
{
    ParcelCount = 3,  ///< the lowest two bits
    SendSound = 4,    ///< one reply, when no parcel is in the line
    HangUp = 8,       ///< before the call
};

/// A client's connection, and what has to be true of it by what went over its line.
class Conversation
{
public:
    explicit Conversation(Input& input) : m_input(input), m_mailbox(input) {}

    void Run()
    {
        bool goesOn = true;
        for (int step = 0; goesOn && step < 32 && !m_input.HasEnded(); ++step)
        {
            goesOn = Step(m_input.Byte());
        }
    }

private:
    bool Step(std::uint8_t action)
    {
        const bool isSound = SendReplies(action);
        if ((action & HangUp) != 0)
        {
            m_line.theirs.Reset();
        }
        const int result = Call();
        Require(!isSound || !m_line.theirs ||
                    result == (m_mailbox.HasRoomFor(m_waiting.front().bytes) ? XoOk : XoBroken),
                "what honest servers send is received if it has room");
        m_mailbox.RequireFences();
        RequireRequest();
        switch (result)
        {
            case XoOk:
                SkipFormer();
                Require(!m_waiting.empty() && FrameOf(m_waiting.front().bytes).sequence == m_calls,
                        "a call gets its own reply");
                Require(FrameOf(m_waiting.front().bytes).kind == FrameKind::Reply,
                        "only replies count");
                m_mailbox.RequireDelivered(m_waiting.front());
                m_waiting.pop_front();
                m_acknowledged = m_calls;
                break;
            case WzTimedOut:
                SkipFormer();
                Require(m_waiting.empty(), "whatever has come is looked at");
                break;
            default:
                Require(result == XoBroken || (result == XoObjectGone && !m_line.theirs),
                        "a call fails for a reason");
                Require(Call() == XoObjectGone, "no call is made after the end");
                return false;
        }
        Require(Peek(m_socket.Get()) == (m_waiting.empty() ? "" : m_waiting.front().bytes),
                "later packets stay in the line");
        return true;
    }

    /// @returns whether the line holds one sound reply to the next call
    bool SendReplies(std::uint8_t action)
    {
        const Honest next{FrameKind::Reply, m_calls + 1, 0};
        if ((action & SendSound) != 0 && m_waiting.empty() &&
            SendHonestly(m_input, next, m_line.theirs.Get()))
        {
            m_waiting.push_back({Peek(m_socket.Get()), {}});
            return true;
        }
        for (int i = 0; i < (action & ParcelCount); ++i)
        {
            const Parcel parcel = TakeParcel(m_input, next);
            if (parcel.Send(m_line.theirs.Get()))
            {
                m_waiting.push_back(parcel);
            }
        }
        return false;
    }

    int Call()
    {
        wz_message request{};
        request.size = sizeof request;
        m_mailbox.Arm();
        return m_connection.Call(
            platform::Deadline(0), &request, nullptr, m_mailbox.Message(), m_mailbox.Arena());
    }

    /// The server's end has got the request of this call.
    void RequireRequest()
    {
        ++m_calls;
        if (!m_line.theirs)
        {
            return;
        }
        platform::ReceivedPacket packet;
        Require(ReceivePacket(m_line.theirs.Get(), platform::Waiting::No, packet) ==
                    platform::Arrival::Packet,
                "a call sends a request");
        Frame frame{};
        Require(platform::CheckPacket(packet.bytes, packet.size, 0, FrameKind::Request, frame) ==
                    nullptr,
                "a request is sound");
        Require(frame.sequence == m_calls && frame.acknowledged == m_acknowledged,
                "a request tells what was received");
    }

    /// Packets to former calls have to be sound, and no more than those calls.
    void SkipFormer()
    {
        while (!m_waiting.empty() && m_waiting.front().bytes.size() >= sizeof(Frame) &&
               FrameOf(m_waiting.front().bytes).sequence < m_calls)
        {
            ++m_skipped;
            m_waiting.pop_front();
        }
        Require(m_skipped < m_calls, "calls are owed their replies once");
    }

    Input& m_input;
    Mailbox m_mailbox;
    Line m_line;
    platform::Descriptor m_socket{::dup(m_line.ours.Get())};
    platform::ClientConnection m_connection{std::move(m_line.ours),
                                            {},
                                            platform::Place::Servers,
                                            "server"};
    std::deque<Parcel> m_waiting;  ///< sent and not received yet
    std::uint64_t m_calls = 0;
    std::uint64_t m_skipped = 0;
    std::uint64_t m_acknowledged = 0;
};

void Run(std::string_view bytes)
{
    Input input(bytes);
    Mailbox::OpenWhatStays();
    const std::size_t before = CountDescriptors();
    Conversation(input).Run();
    Require(CountDescriptors() == before, "every descriptor is closed");
}

std::string Step(std::initializer_list<Parcel> parcels,
                 std::uint8_t mending = MendNothing,
                 unsigned action = 0)
{
    std::string step(1, static_cast<char>(parcels.size() | action));
    for (const Parcel& parcel : parcels)
    {
        step += Written(parcel, mending);
    }
    return step;
}

std::vector<std::string> Seeds()
{
    const auto reply = [](std::uint64_t sequence, std::uint8_t mask = 0)
    {
        const std::size_t handles = mask == 0 ? 0 : 1;
        return Parcel{Packet({FrameKind::Reply, sequence}, mask, 0, "hello"),
                      std::vector<Attachment>(handles, Attachment::EventObject)};
    };
    const Parcel inFile{Packet({FrameKind::Reply}, 1, platform::FrameArenaInFile),
                        {Attachment::ArenaFile, Attachment::EventObject}};
    const std::string sound = {SendSound, 40, 0, 1, 1, 2, 'a', 'b'};
    const std::string silent = Step({});
    const std::string rooms = Rooms(160, 0xFF, 8);
    return {
        "",
        rooms + sound + sound + sound,
        rooms + std::string{SendSound, 80, 0, 5, static_cast<char>(0xFF), 0} + sound,
        rooms + std::string{SendSound, 0, 0, 0, 0, 0} + sound,
        Rooms(30, 0, 0) + sound,
        rooms + silent + Step({reply(1), reply(2)}) + sound,
        rooms + silent + silent + Step({reply(1), reply(1), reply(3)}),
        rooms + silent + silent + Step({reply(2), reply(1), reply(1)}),
        rooms + Step({reply(1), reply(1)}) + Step({reply(2)}),
        rooms + Step({reply(1), reply(2), reply(3)}) + silent + silent,
        rooms + Step({reply(1, 4)}) + Step({reply(2, 4)}),
        rooms + Step({inFile}, MendAll) + Step({inFile}, MendAll),
        rooms + Step({reply(2)}),
        rooms + Step({reply(0)}),
        rooms + Step({{{}, {}}}),
        rooms + Step({{Packet({FrameKind::Request, 1}), {}}}),
        rooms + Step({reply(1)}, MendNothing, HangUp) + silent,
        rooms + silent + Step({reply(1)}, MendNothing, HangUp),
    };
}

}  // namespace

const Target Replies{"replies", &Run, &Seeds};

}  // namespace fuzz
