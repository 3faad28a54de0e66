#include <cstring>
#include <limits>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <component/settings_manager/raw_setting.h>

namespace {

using Block = std::vector<unsigned char>;
using nvl::Root;
using settings_manager::Deserialize;
using settings_manager::Setting;
using settings_manager::impl::Raw;
using settings_manager::impl::RawItem;
using List = Setting::List;
using Map = Setting::Map;
using Items = std::vector<RawItem>;

/// Two numbers of eight bytes, and what follows.
Block MakeBlock(unsigned long first, unsigned long second, const std::string& payload = {})
{
    Block block(16);
    std::memcpy(block.data(), &first, 8);
    std::memcpy(block.data() + 8, &second, 8);
    block.insert(block.end(), payload.begin(), payload.end());
    return block;
}

const Block Attrib = MakeBlock(0x10000, 0);

RawItem Item(const char* path, const Setting::Variant& value = 1)
{
    RawItem item(Root, Setting{value});
    item.path = path;
    return item;
}

RawItem ListItem(const char* path, unsigned long claimedElements = 0)
{
    return Item(path, List(claimedElements));
}

RawItem MapItem(const char* path)
{
    return Item(path, Map());
}

Setting Number(int number)
{
    return Setting{number};
}

}  // namespace

TEST(RawItem, HasABlockForEachKind)
{
    const std::vector<std::pair<Setting::Variant, Block>> rows{
        {{}, MakeBlock(0, 0)},
        {List(3), MakeBlock(1, 3)},
        {Map{{"a", {}}}, MakeBlock(2, 0)},
        {true, MakeBlock(3, 1)},
        {static_cast<signed char>(-2), MakeBlock(4, 0xFE)},
        {static_cast<short>(-2), MakeBlock(5, 0xFFFE)},
        {-2, MakeBlock(6, 0xFFFFFFFE)},
        {-2L, MakeBlock(7, ~0UL - 1)},
        {-0.0, MakeBlock(8, 0x8000000000000000)},
        {std::numeric_limits<double>::signaling_NaN(), MakeBlock(8, 0x7FF4000000000000)},
        {plk::types::Timestamp{0x0102030405060708}, MakeBlock(9, 0x0102030405060708)},
        {std::string("a\0b", 3), MakeBlock(10, 4, std::string("a\0b\0", 4))},
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

        Setting back{Map{{"old", {}}}, {}};
        item.DeserializeValue(back);
        const Block withoutChildren = MakeBlock(block[0], 0);
        EXPECT_EQ(RawItem(Root, back).value, block[0] == 1 ? withoutChildren : block);
    }
}

TEST(RawItem, IgnoresWhatItDoesNotNeed)
{
    const std::vector<std::pair<Block, Setting::Variant>> rows{
        {MakeBlock(5, 0xAAAABBBBCCCCFFFE, "more"), static_cast<short>(-2)},
        {MakeBlock(3, 0x80), true},
        {MakeBlock(10, 3, "a\nmore"), std::string("a\n")},
        {MakeBlock(1, 1UL << 50), List()},
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
        {Attrib, MakeBlock(10, 0), UnspecifiedError},
        {Attrib, MakeBlock(11, 1), InvalidSize},
        {Attrib, MakeBlock(11, ~0UL), UnspecifiedError},
        {Attrib, good, 0},
    };
    for (const auto& [attrib, value, code] : rows)
    {
        RawItem item;
        item.attrib = attrib;
        item.value = value;
        nvl::Path path;
        Setting setting;
        EXPECT_EQ(Deserialize(Items{item}, path, setting).first, code);
    }
}

TEST(RawSetting, ComesBackAsItWasWritten)
{
    const Setting tree{
        Map{{"list", {List{Number(1), {List{}, {true}}, {Map{{"deep", {List{Number(2)}}}}}}}},
            {"empty", {Map{}, {true}}},
            {"text", {std::string("longer than what fits into the string object itself")}},
            {"zero-level", {}}},
        {true}};
    Items items;
    settings_manager::Serialize<nvl::Path, Items, unsigned long>(Root / "r" / 7UL, tree, items);

    std::string paths;
    for (const RawItem& item : items)
    {
        paths += item.path + " ";
    }
    EXPECT_EQ(paths,
              "r/7/ r/7/empty/ r/7/list/ r/7/list/0/ r/7/list/1/ r/7/list/2/ "
              "r/7/list/2/deep/ r/7/list/2/deep/0/ r/7/text/ r/7/zero-level/ ");

    nvl::Path path;
    Setting back;
    EXPECT_EQ(Deserialize(items, path, back), nvl::ResultOk);
    EXPECT_EQ(path, Root / "r" / 7UL);
    EXPECT_EQ(back, tree);
}

TEST(RawSetting, TakesWhatAWriterMayLeaveOutRepeatOrReorder)
{
    const Map two{{"a", Number(1)}, {"b", Number(2)}};
    List longest(65536);
    longest[65535] = Number(1);
    const std::vector<std::pair<Items, Setting>> rows{
        {{ListItem("r"), Item("r/65535")}, {longest}},
        {{ListItem("r", 1), Item("r/0"), Item("r/3", 4)}, {List{Number(1), {}, {}, Number(4)}}},
        {{MapItem("r"), Item("r/b", 7), Item("r/a"), Item("r/b/", 2)}, {two}},
        {{ListItem("r"), MapItem("r/0"), Item("r/0/a"), MapItem("r/0"), Item("r/1", 5)},
         {List{{Map{}}, Number(5)}}},
        {{MapItem("r"), MapItem("r/a"), Item("r/other/b")}, {Map{{"a", {Map{{"b", Number(1)}}}}}}},
    };
    for (const auto& [items, tree] : rows)
    {
        nvl::Path path;
        Setting setting;
        EXPECT_EQ(Deserialize(items, path, setting), nvl::ResultOk);
        EXPECT_EQ(setting, tree);
    }
}

TEST(RawSetting, RefusesWhatIsNoTree)
{
    using namespace plk::codes;
    const std::vector<std::pair<Items, int>> rows{
        {{}, SettingsAreRequired},
        {{Item("/")}, InvalidArgument},
        {{ListItem("r"), Item("r/65536")}, InvalidArgument},
        {{MapItem("r/"), Item("x/a/")}, LessThan},
        {{MapItem("a/b"), Item("a")}, LessThan},
        {{MapItem(""), Item("")}, LessThan},
        {{MapItem("r"), MapItem("r/a"), MapItem("r/a/b"), MapItem("r/c"), Item("r/a/b/c")},
         MoreThan},
        {{Item("r"), Item("r/a")}, NotMatched},
        {{ListItem("r"), Item("r/a")}, NotMatched},
        {{MapItem("r"), Item("r/0")}, NotMatched},
    };
    for (const auto& [items, code] : rows)
    {
        nvl::Path path = Root / "old";
        Setting setting = Number(7);
        EXPECT_EQ(Deserialize(items, path, setting).first, code);
        EXPECT_EQ(path, Root / "old");
        EXPECT_EQ(setting, Number(7));
    }
}
