#include <bit>
#include <cstring>

#include <frame.h>

#include "fuzz_target.h"

namespace fuzz {
namespace {

using platform::Frame;
using platform::FrameKind;

/// The first two bytes say what came beside the packet: the kind that is allowed now, and the
/// number of descriptors.
void Run(std::string_view bytes)
{
    if (bytes.size() < 2)
    {
        return;
    }
    const auto allowed = static_cast<FrameKind>(bytes[0]);
    const auto descriptors = static_cast<unsigned char>(bytes[1]);
    const std::string packet(bytes.substr(2));
    const auto* const data = reinterpret_cast<const unsigned char*>(packet.data());
    Frame frame{};
    if (platform::CheckPacket(data, packet.size(), descriptors, allowed, frame) != nullptr)
    {
        return;
    }

    const bool isFile = (frame.flags & platform::FrameArenaInFile) != 0;
    const std::size_t inlineArena = isFile ? 0 : frame.arenaBytes;
    const auto handles = static_cast<std::size_t>(std::popcount(frame.handleMask));
    Require(frame.kind == allowed, "only the allowed kind passes");
    Require(sizeof(Frame) + frame.messageBytes + inlineArena == packet.size(), "sizes add up");
    Require(handles + (isFile ? 1 : 0) == descriptors, "every descriptor is spoken for");
    if (platform::CheckRoom(data, frame, platform::LargestRoom) == nullptr)
    {
        Require(frame.messageBytes >= sizeof(wz_message), "there is a header");
        Require(frame.arenaBytes <= platform::MaxArenaBytes, "the arena fits");
        static_cast<void>(platform::MessageHeader(data));
    }
}

std::string Packet(FrameKind kind, std::uint8_t mask, std::uint16_t flags, std::uint32_t arena)
{
    wz_message header{};
    const auto slots = static_cast<std::uint32_t>(std::popcount(mask));
    const std::size_t size = sizeof(header) + slots * sizeof(wz_handle_slot);
    header.size = static_cast<std::uint32_t>(size) | slots << WzMessageHandleCountShift;
    const Frame frame{
        platform::FrameMagic, kind, mask, flags, 7, 6, static_cast<std::uint32_t>(size), arena};
    const bool isFile = (flags & platform::FrameArenaInFile) != 0;
    std::string bytes(2 + sizeof(frame) + size + (isFile ? 0 : arena), 'x');
    bytes[0] = static_cast<char>(kind);
    bytes[1] = static_cast<char>(slots + (isFile ? 1 : 0));
    std::memcpy(&bytes[2], &frame, sizeof(frame));
    std::memset(&bytes[2 + sizeof(frame)], 0xFF, size);
    std::memcpy(&bytes[2 + sizeof(frame)], &header, sizeof(header));
    return bytes;
}

std::vector<std::string> Seeds()
{
    std::vector<std::string> seeds{
        "",
        Packet(FrameKind::Request, 0, 0, 0),
        Packet(FrameKind::Request, 1, 0, 40),
        Packet(FrameKind::Request, 0xFF, platform::FrameArenaInFile, 70'000),
        Packet(FrameKind::Request, 0, platform::FrameArenaInFile, 0xFFFFFFFF),
        Packet(FrameKind::Reply, 3, 0, 128),
        Packet(FrameKind::Connect, 0, 0, 0),
        Packet(FrameKind::Verdict, 0, 0, 0),
        Packet(static_cast<FrameKind>(9), 0, 0, 0),
    };
    const std::string whole = seeds[2];
    for (const std::size_t size : {2U, 10U, 33U, 34U, 57U, 58U, 60U})
    {
        seeds.push_back(whole.substr(0, size));
    }
    seeds.push_back(whole + "more");
    return seeds;
}

}  // namespace

const Target Frames{"frames", &Run, &Seeds};

}  // namespace fuzz
