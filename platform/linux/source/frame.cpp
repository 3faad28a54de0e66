#include "frame.h"

#include <bit>
#include <cstring>

namespace platform {
namespace {

static_assert(std::endian::native == std::endian::little, "the wire is little-endian");

std::size_t DescriptorsOf(const Frame& frame)
{
    const bool file = (frame.flags & FrameArenaInFile) != 0;
    return static_cast<std::size_t>(std::popcount(frame.handleMask)) + (file ? 1 : 0);
}

const char* CheckSizes(const Frame& frame, std::size_t packetSize)
{
    if (frame.messageBytes < sizeof(wz_message) || frame.messageBytes > MaxMessageBytes)
    {
        return "a message size out of bounds";
    }
    const bool file = (frame.flags & FrameArenaInFile) != 0;
    const bool arenaFits =
        file ? frame.arenaBytes > MaxInlineArena && frame.arenaBytes <= MaxArenaBytes
             : frame.arenaBytes <= MaxInlineArena;
    if (!arenaFits)
    {
        return "an arena size out of bounds";
    }
    const std::size_t expected = sizeof(Frame) + frame.messageBytes + (file ? 0 : frame.arenaBytes);
    return packetSize == expected ? nullptr : "sizes that do not add up";
}

const char* CheckHandles(const Frame& frame, const wz_message& header, std::size_t descriptors)
{
    const std::size_t count = HandleCount(header);
    if (!SlotsFit(count, frame.messageBytes))
    {
        return "more handle slots than the message holds";
    }
    if ((frame.handleMask >> count) != 0)
    {
        return "a handle beyond the count";
    }
    return descriptors == DescriptorsOf(frame) ? nullptr : "a wrong number of descriptors";
}

}  // namespace

wz_message MessageHeader(const unsigned char* packet)
{
    wz_message header;
    std::memcpy(&header, packet + sizeof(Frame), sizeof header);
    return header;
}

const char* CheckPacket(const unsigned char* packet,
                        std::size_t size,
                        std::size_t descriptors,
                        FrameKind allowed,
                        Frame& frame)
{
    if (size < sizeof(Frame))
    {
        return "a packet shorter than its frame";
    }
    std::memcpy(&frame, packet, sizeof frame);
    if (frame.magic != FrameMagic)
    {
        return "a frame of another format or version";
    }
    if (frame.kind != allowed)
    {
        return "a kind of frame that is not allowed now";
    }
    if ((frame.flags & ~FrameArenaInFile) != 0)
    {
        return "unknown flags";
    }
    if (const char* reason = CheckSizes(frame, size))
    {
        return reason;
    }
    const wz_message header = MessageHeader(packet);
    if (frame.kind != FrameKind::Reply && MessageBytes(header) != frame.messageBytes)
    {
        return "a size word that is not the message's size";
    }
    return CheckHandles(frame, header, descriptors);
}

const char* CheckRoom(const unsigned char* packet, const Frame& frame, const MessageRoom& room)
{
    if (frame.messageBytes > room.message)
    {
        return "a message larger than its receiver's buffer";
    }
    if (frame.arenaBytes > room.arena)
    {
        return "an arena larger than its receiver's";
    }
    return HandleCount(MessageHeader(packet)) > room.handles ? "handles that nobody asked for"
                                                             : nullptr;
}

}  // namespace platform
