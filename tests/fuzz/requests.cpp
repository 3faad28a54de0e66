#include <cstring>
#include <limits>

#include <server_connection.h>

#include "fuzz_target.h"
#include "mailbox.h"

namespace fuzz {
namespace {

using platform::Arrival;
using platform::Frame;
using platform::FrameKind;
using platform::ServerConnection;

constexpr std::uint64_t ConnectionId = 7;

/// What happens in one step of an input.
enum Action : std::uint8_t
{
    SendSound = 1,  ///< else a parcel
    HangUp = 2,     ///< before it is received
    Detach = 4,
    Answer = 8,        ///< to what was received or detached last
    AnswerOlder = 16,  ///< to a call before it
};

/// A server's connection, and what has to be true of it by what went over its line.
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
        const Honest next{FrameKind::Request, m_received + 1, m_answered};
        const bool isSound = (action & SendSound) != 0 && next.sequence != 0;
        Parcel parcel = isSound ? Parcel{} : TakeParcel(m_input, next);
        const int theirs = m_line.theirs.Get();
        const bool isSent = isSound ? SendHonestly(m_input, next, theirs) : parcel.Send(theirs);
        if ((action & HangUp) != 0)
        {
            m_line.theirs.Reset();
        }
        parcel.bytes = Peek(m_connection.Socket());
        m_mailbox.Arm();
        WzTvoOrigin origin{};
        int result = XoOk;
        const Arrival arrival =
            m_connection.Receive(m_mailbox.Message(), m_mailbox.Arena(), origin, result);
        m_mailbox.RequireFences();
        const bool mustCome = isSound && isSent && m_mailbox.HasRoomFor(parcel.bytes);
        Require(!mustCome || arrival == Arrival::Packet, "what honest clients send is received");
        switch (arrival)
        {
            case Arrival::Packet:
                Require(result == XoOk, "a packet is delivered");
                RequireInTurn(parcel.bytes, origin);
                m_mailbox.RequireDelivered(parcel);
                ReplyAs(action);
                return true;
            case Arrival::Nothing:
                Require(!isSent && m_line.theirs, "nothing comes where nothing was sent");
                return true;
            case Arrival::Ended:
                Require(!m_line.theirs, "a line ends when its other end does");
                break;
            case Arrival::Broken:
                Require(isSent, "a packet is broken");
                break;
        }
        RequireOver();
        return false;
    }

    void RequireInTurn(const std::string& packet, const WzTvoOrigin& origin)
    {
        const Frame frame = FrameOf(packet);
        Require(frame.magic == platform::FrameMagic && frame.kind == FrameKind::Request,
                "only requests are received");
        Require(frame.sequence > m_received, "sequence numbers rise");
        Require(frame.acknowledged >= m_acknowledged && frame.acknowledged <= m_answered,
                "nobody has got what was not sent");
        Require(origin.connection == ConnectionId && origin.sequence == frame.sequence,
                "a request's origin is known");
        Require(m_connection.Describe().acknowledgedSequence == frame.acknowledged,
                "what was acknowledged is told");
        m_received = frame.sequence;
        m_acknowledged = frame.acknowledged;
    }

    void ReplyAs(std::uint8_t action)
    {
        if ((action & AnswerOlder) != 0)
        {
            Require(TryAnswer(ServerConnection::Debt::Reply, m_received - 1) == XoObjectGone,
                    "no call but the last is answered");
        }
        auto debt = ServerConnection::Debt::Reply;
        if ((action & Detach) != 0)
        {
            Require(m_connection.Detach(m_received) && !m_connection.Detach(m_received),
                    "a request is detached once");
            Require(TryAnswer(debt, m_received) == XoObjectGone, "its debt is that of the ticket");
            debt = ServerConnection::Debt::Ticket;
        }
        if ((action & Answer) != 0)
        {
            const int result = TryAnswer(debt, m_received);
            Require(result == (m_line.theirs ? XoOk : XoObjectGone) || result == XoBroken,
                    "a call that is owed its answer gets it");
            m_answered = m_received;
            Require(TryAnswer(debt, m_received) == XoObjectGone, "an answer is given once");
        }
    }

    int TryAnswer(ServerConnection::Debt debt, std::uint64_t sequence)
    {
        wz_message response{};
        response.size = sizeof response;
        return m_connection.Answer(debt, sequence, &response, nullptr);
    }

    void RequireOver()
    {
        m_connection.End();
        WzTvoOrigin origin{};
        int result = XoOk;
        m_mailbox.Arm();
        Require(m_connection.Receive(m_mailbox.Message(), m_mailbox.Arena(), origin, result) ==
                    Arrival::Ended,
                "nothing comes after the end");
        Require(TryAnswer(ServerConnection::Debt::Reply, m_received) == XoObjectGone,
                "nothing is answered after the end");
    }

    Input& m_input;
    Mailbox m_mailbox;
    Line m_line;
    ServerConnection m_connection{ConnectionId, std::move(m_line.ours), {}};
    std::uint64_t m_received = 0;
    std::uint64_t m_answered = 0;
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

std::string Seed(std::initializer_list<std::string> steps)
{
    std::string seed = Rooms(160, 0xFF, 8);
    for (const std::string& step : steps)
    {
        seed += step;
    }
    return seed;
}

std::string Step(unsigned action,
                 const Parcel& parcel,
                 std::uint8_t mending = MendNothing,
                 std::uint16_t padding = 0)
{
    return static_cast<char>(action) + Written(parcel, mending, padding);
}

std::vector<std::string> Seeds()
{
    const auto request = [](std::uint64_t sequence, std::uint64_t acknowledged)
    {
        return Parcel{Packet({FrameKind::Request, sequence, acknowledged}, 0, 0, "hello"), {}};
    };
    const auto with = [](std::uint8_t mask, std::uint16_t flags, std::vector<Attachment> what)
    {
        return Parcel{Packet({FrameKind::Request}, mask, flags), std::move(what)};
    };
    using A = Attachment;
    constexpr std::uint16_t InFile = platform::FrameArenaInFile;
    const std::string sound = {SendSound | Answer, 80, 0, 5, 1, 3, 'a', 'b', 'c'};
    std::vector<std::string> seeds{
        "",
        Seed({sound, sound, sound}),
        Seed({{SendSound | Answer, 80, 0, 5, static_cast<char>(0xFF), 0}, sound}),
        Seed({{SendSound | Detach, 24, 0, 0, 0, 0}, {SendSound | Answer, 24, 0, 0, 0, 0}}),
        Seed({Step(Answer, request(1, 0)), Step(Answer, request(2, 1)), Step(0, request(9, 2))}),
        Seed({Step(Answer, request(1, 0)), Step(Answer, request(2, 1)), Step(0, request(3, 0))}),
        Seed({Step(Answer | AnswerOlder, request(5, 0)), Step(Answer, request(5, 5))}),
        Seed({Step(Detach | Answer, request(1, 0)), Step(0, request(2, 2))}),
        Seed({Step(Answer | HangUp, request(1, 0)), Step(0, request(2, 0))}),
        Seed({Step(HangUp, {})}),
        Seed({Step(0, {})}),
        Seed({Step(0, {{}, {A::Pipe, A::Pipe}})}),
        Seed({Step(Answer, with(5, 0, {A::EventObject, A::EventObject}))}),
        Seed({Step(Answer, with(3, 0, {A::EventObject, A::Pipe}))}),
        Seed({Step(Answer, with(1, InFile, {A::ArenaFile, A::EventObject}), MendAll)}),
        Seed({Step(Answer, with(0, InFile, {A::LargestArenaFile}), MendAll)}),
        Seed({Step(0, with(0xFF, InFile, std::vector<A>(12, A::EventObject)))}),
        Seed({Step(0, request(1, 0), MendSizes, 0xFFFF)}),
        Seed({Step(0, request(1, 0), MendNothing, 0xFFFF)}),
        Seed({Step(0, {Packet({FrameKind::Reply}), {}})}),
    };
    for (const A kind : {A::OpenFile, A::WritableFile, A::Pipe, A::LargestArenaFile, A::Folder})
    {
        Parcel parcel = with(0, InFile, {kind});
        Frame frame = FrameOf(parcel.bytes);
        frame.arenaBytes = platform::MaxInlineArena + 1;
        std::memcpy(parcel.bytes.data(), &frame, sizeof frame);
        seeds.push_back(Seed({Step(0, parcel)}));
    }
    Parcel slotless = with(1, 0, {A::EventObject});
    slotless.bytes[offsetof(Frame, handleMask)] = 2;
    seeds.push_back(Seed({Step(0, slotless)}));
    for (const A kind : {A::StreamSocket, A::ListeningSocket, A::Folder, A::ArenaFile})
    {
        seeds.push_back(Seed({Step(0, with(1, 0, {kind}))}));
    }
    return seeds;
}

}  // namespace

const Target Requests{"requests", &Run, &Seeds};

}  // namespace fuzz
