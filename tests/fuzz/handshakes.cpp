#include <algorithm>
#include <cstring>

#include <handshake.h>

#include "fuzz_target.h"
#include "wire.h"

namespace fuzz {
namespace {

using platform::ConnectRequest;
using platform::FrameKind;
using platform::ReceivedPacket;

/// Receives what was sent and reads it with `parse`.
template <class Parse>
auto Read(const Line& line, Parse parse)
{
    ReceivedPacket packet;
    const auto arrival = ReceivePacket(line.ours.Get(), platform::Waiting::No, packet);
    const char* fault = packet.fault;
    using Result = decltype(parse(packet.bytes, packet.size, std::size_t{}, fault));
    Result result;
    if (arrival == platform::Arrival::Packet)
    {
        result = parse(packet.bytes, packet.size, packet.descriptors.Count(), fault);
        Require(!result || packet.descriptors.Count() == 0, "nothing comes with a handshake");
    }
    Require(result.has_value() == (fault == nullptr), "there is a message or a fault");
    return result;
}

void RequireName(const std::string& name, std::size_t limit)
{
    Require(!name.empty() && name.size() <= limit, "a name keeps to its limit");
    Require(std::none_of(name.begin(),
                         name.end(),
                         [](char byte) { return static_cast<unsigned char>(byte) < ' '; }),
            "a name holds no control characters");
}

void ReadConnect(const Line& line)
{
    if (const auto request = Read(line, &platform::ParseConnect))
    {
        RequireName(request->service, platform::MaxServiceName);
        RequireName(request->client, platform::MaxClientName);
        SendConnect(line.theirs.Get(), *request);
        const auto again = Read(line, &platform::ParseConnect);
        Require(again && again->service == request->service && again->client == request->client,
                "what was read can be sent");
    }
}

void ReadVerdict(const Line& line)
{
    if (const auto verdict = Read(line, &platform::ParseVerdict))
    {
        platform::SendVerdict(line.theirs.Get(), verdict->result, verdict->riid);
        const auto again = Read(line, &platform::ParseVerdict);
        Require(again && again->result == verdict->result && again->riid == verdict->riid,
                "what was read can be sent");
    }
}

/// The first byte tells who reads: 0 the server, else the client.
void Run(std::string_view bytes)
{
    Input input(bytes);
    const bool isServer = input.Byte() == 0;
    const Parcel parcel = TakeParcel(input, {isServer ? FrameKind::Connect : FrameKind::Verdict});
    DescriptorOf(Attachment::EventObject);
    const std::size_t before = CountDescriptors();
    {
        const Line line;
        Require(parcel.Send(line.theirs.Get()), "an empty line takes a packet");
        isServer ? ReadConnect(line) : ReadVerdict(line);
    }
    Require(CountDescriptors() == before, "every descriptor is closed");
}

std::string ConnectSeed(const std::string& service, const std::string& client, std::uint32_t extra)
{
    platform::ConnectMessage message{};
    message.header.size = sizeof message;
    message.serviceBytes = static_cast<std::uint32_t>(service.size());
    message.clientBytes = static_cast<std::uint32_t>(client.size()) + extra;
    std::string packet = Packet({FrameKind::Connect});
    packet.resize(sizeof(platform::Frame));
    platform::Frame frame = FrameOf(packet);
    frame.messageBytes = sizeof message;
    std::memcpy(packet.data(), &frame, sizeof frame);
    packet.append(reinterpret_cast<const char*>(&message), sizeof message);
    return std::string(1, '\0') + Written({packet + service + client, {}});
}

std::vector<std::string> Seeds()
{
    std::string verdict = Packet({FrameKind::Verdict});
    verdict.append(8, '\x01');
    platform::Frame frame = FrameOf(verdict);
    frame.messageBytes = sizeof(platform::VerdictMessage);
    std::memcpy(verdict.data(), &frame, sizeof frame);
    std::string inFile = verdict;
    frame.flags = platform::FrameArenaInFile;
    std::memcpy(inFile.data(), &frame, sizeof frame);
    const std::vector<Attachment> pipe(1, Attachment::Pipe);
    return {
        "",
        ConnectSeed("vx.Service.one", "client", 0),
        ConnectSeed("a", "b", 1),
        ConnectSeed("a", "b", 0xFFFFFFFF),
        ConnectSeed("", "b", 0),
        ConnectSeed("new\nline", "b", 0),
        ConnectSeed(std::string(255, 's'), std::string(64, 'c'), 0),
        ConnectSeed(std::string(256, 's'), "c", 0),
        '\x01' + Written({verdict, {}}),
        '\x01' + Written({verdict, pipe}, MendSizes),
        '\x01' + Written({verdict + "more", {}}),
        '\x01' + Written({inFile, {Attachment::ArenaFile}}),
        std::string(1, '\0') + Written({verdict, {}}, MendSizes),
    };
}

}  // namespace

const Target Handshakes{"handshakes", &Run, &Seeds};

}  // namespace fuzz
