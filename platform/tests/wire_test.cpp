#include <gtest/gtest.h>

#include "handshake.h"
#include "linux_support.h"

namespace platform::tests {
namespace {

struct Row
{
    const char* what;
    std::function<void(RawPacket&)> change;
    std::size_t descriptors = 0;
    std::size_t cut = 0;  ///< bytes taken off the end
};

/// Puts a value into a field of the frame.
template <typename Field, typename Value>
auto Set(Field Frame::*field, Value value)
{
    return [=](RawPacket& packet)
    {
        packet.frame.*field = static_cast<Field>(value);
    };
}

auto Sized(std::size_t messageBytes)
{
    return [=](RawPacket& packet)
    {
        packet = RawPacket(FrameKind::Request, messageBytes);
    };
}

auto SizeWord(std::uint32_t word)
{
    return [=](RawPacket& packet)
    {
        packet.SetSizeWord(word);
    };
}

const char* Check(const Row& row, FrameKind kind)
{
    RawPacket packet(kind);
    row.change(packet);
    std::string bytes = packet.Bytes();
    bytes.resize(bytes.size() - row.cut);
    Frame frame{};
    return CheckPacket(reinterpret_cast<const unsigned char*>(bytes.data()),
                       bytes.size(),
                       row.descriptors,
                       kind,
                       frame);
}

TEST(Frame, SoundPacketsPass)
{
    const std::vector<Row> rows{
        {"plain",
         [](RawPacket&) {
         }},
        {"largest message", Sized(4096)},
        {"smallest message", Sized(24)},
        {"largest arena in the packet",
         [](RawPacket& packet)
         {
             packet.arena.resize(65536);
             packet.frame.arenaBytes = 65536;
         }},
        {"largest arena in a file",
         [](RawPacket& packet)
         {
             packet.frame.flags = FrameArenaInFile;
             packet.frame.arenaBytes = 1 << 20;
         },
         1},
        {"two of three handles and a file",
         [](RawPacket& packet)
         {
             packet.SetSizeWord(80 | 3U << 23);
             packet.frame.handleMask = 5;
             packet.frame.flags = FrameArenaInFile;
             packet.frame.arenaBytes = 65537;
         },
         3},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(Check(row, FrameKind::Request), nullptr) << row.what;
    }
    const Row oddSizeWord{"size word", SizeWord(5)};
    EXPECT_EQ(Check(oddSizeWord, FrameKind::Reply), nullptr) << "a stale response is a response";
}

TEST(Frame, BrokenPacketsAreRefused)
{
    const auto setArena = [](std::uint32_t announced, std::size_t sent, std::uint16_t flags)
    {
        return [=](RawPacket& packet)
        {
            packet.frame.arenaBytes = announced;
            packet.frame.flags = flags;
            packet.arena.resize(sent);
        };
    };
    const auto setHandles = [](std::uint32_t count, std::uint8_t mask)
    {
        return [=](RawPacket& packet)
        {
            packet.SetSizeWord(80 | count << 23);
            packet.frame.handleMask = mask;
        };
    };
    const std::vector<Row> rows{
        {"nothing at all", [](RawPacket&) {}, 0, 112},
        {"half a frame", [](RawPacket&) {}, 0, 96},
        {"no message", [](RawPacket&) {}, 0, 80},
        {"one byte short", [](RawPacket&) {}, 0, 1},
        {"one byte too many",
         [](auto& packet)
         {
             packet.arena = "x";
         }},
        {"magic", Set(&Frame::magic, FrameMagic ^ 1)},
        {"next version", Set(&Frame::magic, FrameMagic + (1U << 24))},
        {"kind", Set(&Frame::kind, FrameKind::Reply)},
        {"unknown kind", Set(&Frame::kind, FrameKind{0xFF})},
        {"flags", Set(&Frame::flags, 2)},
        {"message below a header", Sized(23)},
        {"message too large", Sized(4097)},
        {"huge message size", Set(&Frame::messageBytes, 0xFFFFFFFF)},
        {"size word above", SizeWord(81)},
        {"size word zero", SizeWord(0)},
        {"arena announced and not sent", setArena(10, 0, 0)},
        {"arena too large for the packet", setArena(65537, 65537, 0)},
        {"sizes that wrap round", setArena(0xFFFFFFFF, 0, 0)},
        {"arena file without a descriptor", setArena(70000, 0, FrameArenaInFile)},
        {"arena file of one megabyte and one", setArena((1 << 20) + 1, 0, FrameArenaInFile), 1},
        {"small arena in a file", setArena(65536, 0, FrameArenaInFile), 1},
        {"descriptor for nothing", [](RawPacket&) {}, 1},
        {"handle beyond the count", setHandles(2, 4), 1},
        {"handle of no slot", setHandles(0, 1), 1},
        {"fewer descriptors than handles", setHandles(3, 7), 2},
        {"more descriptors than handles", setHandles(3, 7), 4},
        {"slots behind the message", setHandles(4, 1), 1},
        {"nine slots",
         [](RawPacket& packet)
         {
             packet = RawPacket(FrameKind::Request, 4096);
             packet.SetSizeWord(4096 | 9U << 23);
         }},
    };
    for (const Row& row : rows)
    {
        EXPECT_NE(Check(row, FrameKind::Request), nullptr) << row.what;
    }
}

TEST(Frame, RoomOfTheReceiverIsKept)
{
    struct RoomRow
    {
        MessageRoom room;
        bool fits;
    };
    RawPacket packet;
    packet.SetSizeWord(80 | 2U << 23);
    packet.arena = "four";
    packet.frame.arenaBytes = 4;
    const std::string bytes = packet.Bytes();
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    for (const RoomRow& row : {RoomRow{{80, 4, 2}, true},
                               RoomRow{{79, 4, 2}, false},
                               RoomRow{{80, 3, 2}, false},
                               RoomRow{{80, 4, 1}, false}})
    {
        EXPECT_EQ(CheckRoom(data, packet.frame, row.room) == nullptr, row.fits);
    }
}

std::string ConnectPacket(const std::string& service,
                          const std::string& client,
                          std::uint32_t extra = 0)
{
    RawPacket packet(FrameKind::Connect, sizeof(ConnectMessage));
    const std::uint32_t sizes[] = {static_cast<std::uint32_t>(service.size()) + extra,
                                   static_cast<std::uint32_t>(client.size())};
    std::memcpy(packet.message.data() + sizeof(wz_message), sizes, sizeof sizes);
    packet.arena = service + client;
    packet.frame.arenaBytes = static_cast<std::uint32_t>(packet.arena.size());
    return packet.Bytes();
}

TEST(Handshake, NamesAreBoundedAndPrintable)
{
    struct NameRow
    {
        std::string bytes;
        bool sound;
    };
    const std::vector<NameRow> rows{
        {ConnectPacket("service", "client"), true},
        {ConnectPacket(std::string(255, 's'), std::string(64, 'c')), true},
        {ConnectPacket(std::string(256, 's'), "client"), false},
        {ConnectPacket("service", std::string(65, 'c')), false},
        {ConnectPacket("", "client"), false},
        {ConnectPacket("service", ""), false},
        {ConnectPacket(std::string("ser\0vice", 8), "client"), false},
        {ConnectPacket("service", "cli\nent"), false},
        {ConnectPacket("service", "client", 1), false},
        {ConnectPacket("service", "client", 0xFFFFFFFF), false},
        {RawPacket(FrameKind::Connect).Bytes(), false},
    };
    for (const NameRow& row : rows)
    {
        const char* fault = nullptr;
        const auto request = ParseConnect(
            reinterpret_cast<const unsigned char*>(row.bytes.data()), row.bytes.size(), 0, fault);
        EXPECT_EQ(request.has_value(), row.sound);
        EXPECT_EQ(fault == nullptr, row.sound);
    }
}

}  // namespace
}  // namespace platform::tests
