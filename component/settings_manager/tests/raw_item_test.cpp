#include <cstring>
#include <limits>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <component/nvl/error.h>
#include <component/settings_manager/raw_setting.h>

namespace {

using Block = std::vector<unsigned char>;
using nvl::Root;
using settings_manager::Setting;
using settings_manager::impl::Raw;
using settings_manager::impl::RawItem;

/// Two numbers of eight bytes, and what follows.
Block MakeBlock(unsigned long first, unsigned long second, const std::string& payload = {})
{
    Block block(16);
    std::memcpy(block.data(), &first, 8);
    std::memcpy(block.data() + 8, &second, 8);
    block.insert(block.end(), payload.begin(), payload.end());
    return block;
}

int Read(const Block& attrib, const Block& value)
{
    RawItem item;
    item.attrib = attrib;
    item.value = value;
    nvl::Path path;
    Setting setting;
    return settings_manager::Deserialize(std::vector{item}, path, setting).first;
}

const Block Attrib = MakeBlock(0x10000, 0);

}  // namespace

TEST(RawItem, HasABlockForEachKind)
{
    const std::vector<std::pair<Setting::Variant, Block>> rows{
        {{}, MakeBlock(0, 0)},
        {Setting::List(3), MakeBlock(1, 3)},
        {Setting::Map{{"a", {}}}, MakeBlock(2, 0)},
        {true, MakeBlock(3, 1)},
        {static_cast<signed char>(-2), MakeBlock(4, 0xFE)},
        {static_cast<short>(-2), MakeBlock(5, 0xFFFE)},
        {-2, MakeBlock(6, 0xFFFFFFFE)},
        {-2L, MakeBlock(7, ~0UL - 1)},
        {-0.0, MakeBlock(8, 0x8000000000000000)},
        {std::numeric_limits<double>::signaling_NaN(), MakeBlock(8, 0x7FF4000000000000)},
        {plk::types::Timestamp{0x0102030405060708}, MakeBlock(9, 0x0102030405060708)},
        {std::string("a\0b", 3), MakeBlock(10, 4, std::string("a\0b\0", 4))},
        {std::string(), MakeBlock(10, 1, std::string(1, '\0'))},
        {Setting::Blob{0, 0xFF}, MakeBlock(11, 2, std::string("\0\xFF", 2))},
        {Setting::Blob(), MakeBlock(11, 0)},
        {static_cast<unsigned char>(0xFF), MakeBlock(12, 0xFF)},
        {static_cast<unsigned short>(0xFFFF), MakeBlock(13, 0xFFFF)},
        {~0U, MakeBlock(14, 0xFFFFFFFF)},
        {~0UL, MakeBlock(15, ~0UL)},
    };
    for (const auto& [value, block] : rows)
    {
        const RawItem item(Root / "a" / 1UL, Setting{value, {true}});
        EXPECT_EQ(item.attrib, MakeBlock(0x10000, 1));
        EXPECT_EQ(item.value, block) << value.index();
        EXPECT_EQ(item.path, "a/1/");

        Setting back{Setting::Map{{"old", {}}}, {}};
        item.DeserializeValue(back);
        const Block withoutChildren = MakeBlock(block[0], 0);
        EXPECT_EQ(RawItem(Root, back).value, block[0] == 1 ? withoutChildren : block);
    }
}

TEST(RawItem, IgnoresWhatItDoesNotNeed)
{
    const std::vector<std::pair<Block, Setting::Variant>> rows{
        {MakeBlock(5, 0xAAAABBBBCCCCFFFE, "more"), static_cast<short>(-2)},
        {MakeBlock(3, 0x200), false},
        {MakeBlock(3, 0x80), true},
        {MakeBlock(10, 3, "a\nmore"), std::string("a\n")},
        {MakeBlock(1, 1UL << 50), Setting::List()},
    };
    Setting setting;
    for (const auto& [block, value] : rows)
    {
        Raw::ToValue(block, setting.value);
        EXPECT_EQ(setting, Setting{value});
    }
    EXPECT_EQ(std::get<Setting::List>(setting.value).capacity(), 65536U);
}

TEST(RawItem, RefusesBadBlocks)
{
    using namespace plk::codes;
    const Block good = MakeBlock(0, 0);
    const std::vector<std::tuple<Block, Block, int>> rows{
        {Block(15), good, InvalidSize},
        {MakeBlock(0x10001, 0), good, InvalidVersion},
        {Attrib, Block(15), InvalidSize},
        {Attrib, MakeBlock(16, 0), InvalidIndex},
        {Attrib, MakeBlock(1UL << 32, 0), InvalidIndex},
        {Attrib, MakeBlock(1, ~0UL), UnspecifiedError},
        {Attrib, MakeBlock(10, 2, "a"), InvalidSize},
        {Attrib, MakeBlock(10, ~0UL - 15), InvalidSize},
        {Attrib, MakeBlock(10, ~0UL - 16), InvalidSize},
        {Attrib, MakeBlock(10, 0), UnspecifiedError},
        {Attrib, MakeBlock(11, 1), InvalidSize},
        {Attrib, MakeBlock(11, ~0UL >> 1), InvalidSize},
        {Attrib, MakeBlock(11, ~0UL), UnspecifiedError},
        {Attrib, good, 0},
    };
    for (const auto& [attrib, value, code] : rows)
    {
        EXPECT_EQ(Read(attrib, value), code);
    }
    Setting setting{std::string("old")};
    EXPECT_THROW(Raw::ToValue(MakeBlock(11, 1), setting.value), nvl::Error);
    EXPECT_EQ(setting, Setting{std::string("old")});
}
