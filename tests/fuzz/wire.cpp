#include "wire.h"

#include <array>
#include <bit>
#include <cerrno>
#include <cstring>

#include <arena_file.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "fuzz_target.h"

namespace fuzz {
namespace {

using platform::Frame;

constexpr std::size_t SmallArenaFile = platform::MaxInlineArena + 1;
constexpr std::size_t MostAttachments = platform::MaxPacketDescriptors + 3;

int MakeArenaFile(std::size_t size)
{
    const std::string_view text = ArenaFileText(size);
    return platform::MakeArenaFile(reinterpret_cast<const unsigned char*>(text.data()), size)
        .Release();
}

int MakeFile(int seals)
{
    const int file = ::memfd_create("fuzz", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    Require(::ftruncate(file, SmallArenaFile) == 0 && ::fcntl(file, F_ADD_SEALS, seals) == 0,
            "a file can be made");
    return file;
}

int MakeSocket(int type)
{
    int ends[2];
    Require(::socketpair(AF_UNIX, type | SOCK_CLOEXEC, 0, ends) == 0, "sockets can be made");
    return ends[0];
}

int MakePipe()
{
    int ends[2];
    Require(::pipe2(ends, O_CLOEXEC) == 0, "a pipe can be made");
    return ends[0];
}

int MakeListener()
{
    const int listener = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    // The kernel finds a name.
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const auto* const generic = reinterpret_cast<const sockaddr*>(&address);
    Require(::bind(listener, generic, sizeof address.sun_family) == 0 && ::listen(listener, 1) == 0,
            "a socket can listen");
    return listener;
}

bool HasFile(const Frame& frame)
{
    return (frame.flags & platform::FrameArenaInFile) != 0;
}

void MendSizesOf(Frame& frame, std::string& packet, Attachment first)
{
    const std::size_t behind = packet.size() - sizeof frame;
    if (behind < sizeof(wz_message))
    {
        return;
    }
    const std::size_t longest = std::min(behind, platform::MaxMessageBytes);
    frame.messageBytes = static_cast<std::uint32_t>(
        std::clamp<std::size_t>(frame.messageBytes, sizeof(wz_message), longest));
    frame.arenaBytes = static_cast<std::uint32_t>(behind - frame.messageBytes);
    if (HasFile(frame))
    {
        packet.resize(sizeof frame + frame.messageBytes);
        const bool isLargest = first == Attachment::LargestArenaFile;
        frame.arenaBytes = isLargest ? platform::MaxArenaBytes : SmallArenaFile;
    }
    if (frame.kind != platform::FrameKind::Reply)
    {
        std::uint32_t word = 0;
        char* const place = packet.data() + sizeof frame + offsetof(wz_message, size);
        std::memcpy(&word, place, sizeof word);
        word = (word & ~WzMessageSizeMask) | frame.messageBytes;
        std::memcpy(place, &word, sizeof word);
    }
}

void Mend(Parcel& parcel, std::uint8_t mending, const Honest& honest, Attachment first)
{
    if (parcel.bytes.size() < sizeof(Frame))
    {
        return;
    }
    Frame frame = FrameOf(parcel.bytes);
    if ((mending & MendKind) != 0)
    {
        frame.magic = platform::FrameMagic;
        frame.kind = honest.kind;
    }
    frame.sequence = (mending & MendSequence) != 0 ? honest.sequence : frame.sequence;
    frame.acknowledged =
        (mending & MendAcknowledged) != 0 ? honest.acknowledged : frame.acknowledged;
    if ((mending & MendSizes) != 0)
    {
        MendSizesOf(frame, parcel.bytes, first);
    }
    if ((mending & MendAttachments) != 0)
    {
        const std::size_t count =
            static_cast<std::size_t>(std::popcount(frame.handleMask)) + (HasFile(frame) ? 1 : 0);
        parcel.attachments.resize(count);
    }
    std::memcpy(parcel.bytes.data(), &frame, sizeof frame);
}

}  // namespace

int DescriptorOf(Attachment kind)
{
    static const std::array<int, AttachmentKinds> Descriptors{
        MakeSocket(SOCK_SEQPACKET),
        MakeArenaFile(SmallArenaFile),
        MakeArenaFile(platform::MaxArenaBytes),
        MakeFile(0),
        MakeFile(F_SEAL_SHRINK | F_SEAL_GROW),
        MakePipe(),
        MakeSocket(SOCK_STREAM),
        MakeListener(),
        ::open("/", O_PATH | O_CLOEXEC),
    };
    return Descriptors[static_cast<std::size_t>(kind)];
}

std::string_view ArenaFileText(std::size_t size)
{
    static const std::string Text = []
    {
        std::string text(platform::MaxArenaBytes, '\0');
        for (std::size_t i = 0; i < text.size(); ++i)
        {
            text[i] = static_cast<char>(i * 7 + (i >> 8U));
        }
        return text;
    }();
    return std::string_view(Text).substr(0, size);
}

std::size_t CountDescriptors()
{
    std::array<pollfd, 256> all{};
    for (std::size_t i = 0; i < all.size(); ++i)
    {
        all[i].fd = static_cast<int>(i);
    }
    ::poll(all.data(), all.size(), 0);
    return static_cast<std::size_t>(std::count_if(
        all.begin(), all.end(), [](const pollfd& one) { return (one.revents & POLLNVAL) == 0; }));
}

Line::Line()
{
    int ends[2];
    Require(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) == 0,
            "sockets can be made");
    ours.Reset(ends[0]);
    theirs.Reset(ends[1]);
}

bool Parcel::Send(int socket) const
{
    iovec data{const_cast<char*>(bytes.data()), bytes.size()};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(MostAttachments * sizeof(int))> control{};
    msghdr message{};
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    if (!attachments.empty())
    {
        message.msg_control = control.data();
        message.msg_controllen = CMSG_SPACE(attachments.size() * sizeof(int));
        cmsghdr* const rights = CMSG_FIRSTHDR(&message);
        rights->cmsg_level = SOL_SOCKET;
        rights->cmsg_type = SCM_RIGHTS;
        rights->cmsg_len = CMSG_LEN(attachments.size() * sizeof(int));
        for (std::size_t i = 0; i < attachments.size(); ++i)
        {
            const int descriptor = DescriptorOf(attachments[i]);
            std::memcpy(CMSG_DATA(rights) + i * sizeof(int), &descriptor, sizeof descriptor);
        }
    }
    return ::sendmsg(socket, &message, MSG_NOSIGNAL | MSG_DONTWAIT) >= 0;
}

Parcel TakeParcel(Input& input, const Honest& honest)
{
    const std::uint8_t mending = input.Byte();
    const std::size_t count = input.Byte() % (MostAttachments + 1);
    const std::uint8_t kinds = input.Byte();
    const std::size_t size = input.Word();
    const std::size_t padding = input.Word();

    const auto first = static_cast<Attachment>((kinds & 15U) % AttachmentKinds);
    const auto others = static_cast<Attachment>((kinds >> 4U) % AttachmentKinds);
    Parcel parcel{std::string(input.Bytes(size)), {}};
    parcel.bytes.append(padding, '\0');
    parcel.attachments.resize(count);
    Mend(parcel, mending, honest, first);
    std::fill(parcel.attachments.begin(), parcel.attachments.end(), others);
    if (!parcel.attachments.empty())
    {
        parcel.attachments.front() = first;
    }
    return parcel;
}

std::string Written(const Parcel& parcel, std::uint8_t mending, std::uint16_t padding)
{
    const auto word = [](std::size_t value)
    {
        return std::string{static_cast<char>(value & 0xFFU), static_cast<char>(value >> 8U)};
    };
    unsigned kinds = 0;
    if (!parcel.attachments.empty())
    {
        kinds = static_cast<unsigned>(parcel.attachments.front()) |
                static_cast<unsigned>(parcel.attachments.back()) << 4U;
    }
    return std::string{static_cast<char>(mending),
                       static_cast<char>(parcel.attachments.size()),
                       static_cast<char>(kinds)} +
           word(parcel.bytes.size()) + word(padding) + parcel.bytes;
}

std::string Packet(const Honest& honest,
                   std::uint8_t mask,
                   std::uint16_t flags,
                   const std::string& arena)
{
    wz_message header{};
    const auto slots = static_cast<std::uint32_t>(std::bit_width(mask));
    const std::size_t size = sizeof(header) + slots * sizeof(wz_handle_slot);
    header.size = static_cast<std::uint32_t>(size) | slots << WzMessageHandleCountShift;
    const Frame frame{platform::FrameMagic,
                      honest.kind,
                      mask,
                      flags,
                      honest.sequence,
                      honest.acknowledged,
                      static_cast<std::uint32_t>(size),
                      static_cast<std::uint32_t>(arena.size())};
    std::string bytes(sizeof frame + size, '\xFF');
    std::memcpy(bytes.data(), &frame, sizeof frame);
    std::memcpy(bytes.data() + sizeof frame, &header, sizeof header);
    return bytes + arena;
}

Frame FrameOf(const std::string& packet)
{
    Frame frame;
    Require(packet.size() >= sizeof frame, "a packet holds its frame");
    std::memcpy(&frame, packet.data(), sizeof frame);
    return frame;
}

std::string Peek(int socket)
{
    static std::array<char, 2 * platform::MaxPacketBytes> buffer;
    constexpr int Flags = MSG_PEEK | MSG_DONTWAIT | MSG_TRUNC;
    ssize_t size = ::recv(socket, buffer.data(), buffer.size(), Flags);
    if (size < 0 && errno == ECONNRESET)
    {
        // Told once when the other end has gone with packets unread; its own are still there.
        size = ::recv(socket, buffer.data(), buffer.size(), Flags);
    }
    return size > 0 ? std::string(buffer.data(), static_cast<std::size_t>(size)) : std::string();
}

}  // namespace fuzz
