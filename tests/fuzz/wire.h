#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <frame.h>
#include <packet.h>

#include "input.h"

namespace fuzz {

/// What may come with a packet besides bytes; the numbers are those of inputs.
enum class Attachment : std::uint8_t
{
    EventObject,
    ArenaFile,         ///< sealed, 65,537 bytes
    LargestArenaFile,  ///< sealed, 1 MiB
    OpenFile,          ///< not sealed
    WritableFile,      ///< sealed, except against writing
    Pipe,
    StreamSocket,
    ListeningSocket,
    Folder,
};
inline constexpr std::size_t AttachmentKinds = 9;

/// A descriptor of that kind, open as long as the process.
int DescriptorOf(Attachment kind);

/// What the arena files hold, 1 MiB at most.
std::string_view ArenaFileText(std::size_t size);

/// Counts the open descriptors of the process below 256.
std::size_t CountDescriptors();

/// Two connected packet sockets.
struct Line
{
    Line();

    platform::Descriptor ours;
    platform::Descriptor theirs;
};

/// A packet and what comes with it.
struct Parcel
{
    std::string bytes;
    std::vector<Attachment> attachments;

    /// @returns false when the socket is full
    bool Send(int socket) const;
};

/// What of a packet is put right before it is sent, so that inputs get past the first checks.
enum Mending : std::uint8_t
{
    MendNothing = 0,
    MendKind = 1,  ///< and the magic
    MendSequence = 2,
    MendAcknowledged = 4,
    MendSizes = 8,
    MendAttachments = 16,  ///< as many as the frame says
    MendAll = 31,
};

/// The values that a mended packet gets.
struct Honest
{
    platform::FrameKind kind;
    std::uint64_t sequence = 1;
    std::uint64_t acknowledged = 0;
};

/// Reads a parcel from an input.
Parcel TakeParcel(Input& input, const Honest& honest);

/// A parcel as `TakeParcel` reads it.
/// @param padding  zeros behind the packet
std::string Written(const Parcel& parcel,
                    std::uint8_t mending = MendAll,
                    std::uint16_t padding = 0);

/// A packet to make seeds of, sound but for missing attachments.
/// @param mask  one slot a bit
std::string Packet(const Honest& honest,
                   std::uint8_t mask = 0,
                   std::uint16_t flags = 0,
                   const std::string& arena = {});

/// The frame of a packet that is long enough.
platform::Frame FrameOf(const std::string& packet);

/// The next packet in a socket, left there; empty when there is none.
std::string Peek(int socket);

}  // namespace fuzz
