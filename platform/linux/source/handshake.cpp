#include "handshake.h"

#include <algorithm>
#include <cstring>

namespace platform {
namespace {

Frame MakeFrame(FrameKind kind, std::size_t messageBytes, std::size_t arenaBytes)
{
    return {FrameMagic,
            kind,
            0,
            0,
            1,
            0,
            static_cast<std::uint32_t>(messageBytes),
            static_cast<std::uint32_t>(arenaBytes)};
}

/// Checks a packet of the handshake, whose message is of the fixed type `T`.
template <typename T>
const char* Parse(const unsigned char* packet,
                  std::size_t size,
                  std::size_t descriptors,
                  FrameKind kind,
                  Frame& frame,
                  T& message)
{
    if (const char* fault = CheckPacket(packet, size, descriptors, kind, frame))
    {
        return fault;
    }
    if (frame.messageBytes != sizeof message || descriptors != 0)
    {
        return "a handshake of another shape";
    }
    std::memcpy(&message, packet + sizeof frame, sizeof message);
    return nullptr;
}

bool IsName(const std::string& name, std::size_t limit)
{
    const auto isControl = [](char byte)
    {
        return static_cast<unsigned char>(byte) < 0x20;
    };
    return !name.empty() && name.size() <= limit &&
           std::none_of(name.begin(), name.end(), isControl);
}

}  // namespace

Departure SendConnect(int socket, const ConnectRequest& request)
{
    ConnectMessage message{};
    message.header.size = sizeof message;
    message.serviceBytes = static_cast<std::uint32_t>(request.service.size());
    message.clientBytes = static_cast<std::uint32_t>(request.client.size());
    const std::string arena = request.service + request.client;
    const Frame frame = MakeFrame(FrameKind::Connect, sizeof message, arena.size());
    return SendPacket(socket, frame, &message, arena.data(), nullptr, 0);
}

Departure SendVerdict(int socket, int result, std::uint32_t riid)
{
    VerdictMessage message{};
    message.header.size = sizeof message;
    message.result = result;
    message.riid = riid;
    const Frame frame = MakeFrame(FrameKind::Verdict, sizeof message, 0);
    return SendPacket(socket, frame, &message, nullptr, nullptr, 0);
}

std::optional<ConnectRequest> ParseConnect(const unsigned char* packet,
                                           std::size_t size,
                                           std::size_t descriptors,
                                           const char*& fault)
{
    Frame frame;
    ConnectMessage message;
    fault = Parse(packet, size, descriptors, FrameKind::Connect, frame, message);
    if (fault != nullptr)
    {
        return std::nullopt;
    }
    const std::uint64_t names = std::uint64_t{message.serviceBytes} + message.clientBytes;
    if (names != frame.arenaBytes || frame.arenaBytes > MaxServiceName + MaxClientName)
    {
        fault = "names that do not fit their request";
        return std::nullopt;
    }
    const auto* texts =
        reinterpret_cast<const char*>(packet) + sizeof(Frame) + sizeof(ConnectMessage);
    ConnectRequest request{{texts, message.serviceBytes},
                           {texts + message.serviceBytes, message.clientBytes}};
    if (!IsName(request.service, MaxServiceName) || !IsName(request.client, MaxClientName))
    {
        fault = "a name that is none";
        return std::nullopt;
    }
    return request;
}

std::optional<VerdictMessage> ParseVerdict(const unsigned char* packet,
                                           std::size_t size,
                                           std::size_t descriptors,
                                           const char*& fault)
{
    Frame frame;
    VerdictMessage message;
    fault = Parse(packet, size, descriptors, FrameKind::Verdict, frame, message);
    return fault == nullptr ? std::optional(message) : std::nullopt;
}

}  // namespace platform
