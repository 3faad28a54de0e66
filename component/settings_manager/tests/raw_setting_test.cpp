#include <vector>

#include <gtest/gtest.h>

#include <component/nvl/error.h>
#include <component/settings_manager/raw_setting.h>

namespace {

using nvl::Root;
using settings_manager::Deserialize;
using settings_manager::Setting;
using settings_manager::impl::RawItem;
using List = Setting::List;
using Map = Setting::Map;
using Items = std::vector<RawItem>;

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

TEST(RawSetting, ComesBackAsItWasWritten)
{
    const Setting tree{
        Map{{"list", {List{Number(1), {List{}, {true}}, {Map{{"deep", {List{Number(2)}}}}}}}},
            {"empty", {Map{}, {true}}},
            {"text", {std::string("longer than what fits into the string object itself")}},
            {"zero-level", {}}},
        {true}};
    Items items{Item("before")};
    settings_manager::Serialize<nvl::Path, Items, unsigned long>(Root / "r" / 7UL, tree, items);

    std::string paths;
    for (const RawItem& item : items)
    {
        paths += item.path + " ";
    }
    EXPECT_EQ(paths,
              "before r/7/ r/7/empty/ r/7/list/ r/7/list/0/ r/7/list/1/ r/7/list/2/ "
              "r/7/list/2/deep/ r/7/list/2/deep/0/ r/7/text/ r/7/zero-level/ ");

    items.erase(items.begin());
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
        {{ListItem("r", 9), Item("r/1", 1), Item("r/0", 2), Item("r/1", 3)},
         {List{Number(2), Number(3)}}},
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
        {{MapItem("r"), Item("r/a"), Item("r/1x")}, InvalidArgument},
        {{MapItem("r"), Item("r/")}, LessThan},
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
    nvl::Path path;
    Setting setting;
    EXPECT_EQ(Deserialize(Items{MapItem("r"), Item("r/a/b")}, path, setting),
              std::pair(MoreThan,
                        std::string("[RawSetting] path level jump: prev = 'r', this = 'r/a/b'")));
}
