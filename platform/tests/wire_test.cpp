#include <gtest/gtest.h>

#include "handshake.h"
#include "linux_support.h"

namespace platform::tests {
namespace {

struct Row
{
    const char* what;
    std::string bytes;
    std::size_t descriptors = 0;
};

const std::string Sound = Packet();

const char* Check(const Row& row, FrameKind kind = FrameKind::Request)
{
    Frame frame{};
    return CheckPacket(reinterpret_cast<const unsigned char*>(row.bytes.data()),
                       row.bytes.size(),
                       row.descriptors,
                       kind,
                       frame);
}

TEST(Frame, SoundPacketsPass)
{
    const Row rows[] = {
        {"plain", Sound},
        {"largest message", Packet{.messageBytes = 4096}},
        {"smallest message", Packet{.messageBytes = 24}},
        {"largest arena in the packet", Packet{.arena = std::string(65536, 'x')}},
        {"largest arena in a file", Packet{.flags = 1, .arenaBytes = 1 << 20}, 1},
        {"two of three handles and a file",
         Packet{.handles = 3, .mask = 5, .flags = 1, .arenaBytes = 65537},
         3},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(Check(row), nullptr) << row.what;
    }
    const Row stale{"", Packet{.kind = FrameKind::Reply, .sizeWord = 5}};
    EXPECT_EQ(Check(stale, FrameKind::Reply), nullptr) << "is a response too";
}

TEST(Frame, BrokenPacketsAreRefused)
{
    const Row rows[] = {
        {"nothing at all", ""},
        {"half a frame", Sound.substr(0, 16)},
        {"no message", Sound.substr(0, 32)},
        {"one byte short", Sound.substr(0, Sound.size() - 1)},
        {"one byte too many", Sound + "x"},
        {"magic", Packet{.magic = FrameMagic ^ 1}},
        {"next version", Packet{.magic = FrameMagic + (1U << 24)}},
        {"kind", Packet{.kind = FrameKind::Reply}},
        {"unknown kind", Packet{.kind = FrameKind{0xFF}}},
        {"flags", Packet{.flags = 2}},
        {"message below a header", Packet{.messageBytes = 23}},
        {"message too large", Packet{.messageBytes = 4097}},
        {"huge message size", std::string(Sound).replace(24, 4, "\xFF\xFF\xFF\xFF")},
        {"size word above", Packet{.sizeWord = 81}},
        {"size word zero", Packet{.sizeWord = 0}},
        {"arena announced and not sent", Packet{.arenaBytes = 10}},
        {"arena too large for the packet", Packet{.arena = std::string(65537, 'x')}},
        {"sizes that wrap round", Packet{.arenaBytes = 0xFFFFFFFF}},
        {"arena file without a descriptor", Packet{.flags = 1, .arenaBytes = 70000}},
        {"arena file of a megabyte and one", Packet{.flags = 1, .arenaBytes = (1 << 20) + 1}, 1},
        {"small arena in a file", Packet{.flags = 1, .arenaBytes = 65536}, 1},
        {"descriptor for nothing", Sound, 1},
        {"handle beyond the count", Packet{.handles = 2, .mask = 4}, 1},
        {"handle of no slot", Packet{.handles = 0, .mask = 1}, 1},
        {"fewer descriptors than handles", Packet{.handles = 3, .mask = 7}, 2},
        {"more descriptors than handles", Packet{.handles = 3, .mask = 7}, 4},
        {"slots behind the message", Packet{.handles = 4, .mask = 1}, 1},
        {"nine slots", Packet{.messageBytes = 4096, .handles = 9}},
    };
    for (const Row& row : rows)
    {
        EXPECT_NE(Check(row), nullptr) << row.what;
    }
}

TEST(Handshake, NamesAreBoundedAndPrintable)
{
    const std::pair<std::string, bool> rows[] = {
        {AskFor("service", "client"), true},
        {AskFor(std::string(255, 's'), std::string(64, 'c')), true},
        {AskFor(std::string(256, 's'), "client"), false},
        {AskFor("service", std::string(65, 'c')), false},
        {AskFor("", "client"), false},
        {AskFor("service", ""), false},
        {AskFor(std::string("ser\0vice", 8), "client"), false},
        {AskFor("service", "cli\nent"), false},
        {AskFor("service", "client", 1), false},
        {AskFor("service", "client", 0xFFFFFFFF), false},
        {Packet{.kind = FrameKind::Connect}, false},
    };
    for (const auto& [packet, sound] : rows)
    {
        const char* fault = nullptr;
        const auto* bytes = reinterpret_cast<const unsigned char*>(packet.data());
        EXPECT_EQ(ParseConnect(bytes, packet.size(), 0, fault).has_value(), sound);
        EXPECT_EQ(fault == nullptr, sound);
    }
}

}  // namespace
}  // namespace platform::tests
