#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <component/nvl/error.h>
#include <component/settings_manager/path_to_str.h>
#include <component/settings_manager/raw_setting.h>

namespace {

using nvl::Root;
using settings_manager::Deserialize;
using settings_manager::Setting;
using settings_manager::impl::RawItem;
using List = Setting::List;
using Map = Setting::Map;
using Items = std::vector<RawItem>;
using Result = std::pair<int, std::string>;

RawItem Item(const char* path, const Setting::Variant& value = 1)
{
    RawItem item(Root, Setting{value});
    item.path = path;
    return item;
}

Setting WithoutValue()
{
    struct BadMap
    {
        operator Map() const
        {
            throw 5;
        }
    };
    Setting setting;
    EXPECT_THROW(setting.value.emplace<Map>(BadMap()), int);
    return setting;
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
        {{MapItem(""), Item("b", 2), Item("a")}, {two}},
        {{MapItem("r"), Item("r/b", 7), Item("r/a"), Item("r/b/", 2)}, {two}},
        {{MapItem("r"), MapItem("r/a"), MapItem("r/a/a"), Item("r/a/a/a"), Item("r/b", 2)},
         {Map{{"a", {Map{{"a", {Map{{"a", Number(1)}}}}}}}, {"b", Number(2)}}}},
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
    const std::string mismatch = "nvl: Path or id does not correspond to contained item";
    const std::string noPath = "[RawSetting] Str to path fail: src = ";
    const std::string noRoot = "[RawSetting] non-rooted path: root = ";
    const std::string jump = "[RawSetting] path level jump: prev = ";
    const std::vector<std::tuple<Items, int, std::string>> rows{
        {{}, SettingsAreRequired, "[RawSetting] empty raw setting"},
        {{Item("/")}, InvalidArgument, noPath + "'/', state = 5"},
        {{ListItem("r"), Item("r/65536")}, InvalidArgument, noPath + "'r/65536', state = 2"},
        {{MapItem("r"), Item("r/a"), Item("r/1x")}, InvalidArgument, noPath + "'r/1x', state = 7"},
        {{MapItem("r"), Item("r/")}, LessThan, noRoot + "'r', this = 'r/'"},
        {{MapItem("r/"), Item("x/a/")}, LessThan, noRoot + "'r/', this = 'x/a/'"},
        {{MapItem("a/b"), Item("a")}, LessThan, noRoot + "'a/b', this = 'a'"},
        {{MapItem(""), Item("")}, LessThan, noRoot + "'', this = ''"},
        {{MapItem("r"), Item("r/a/b")}, MoreThan, jump + "'r', this = 'r/a/b'"},
        {{MapItem("r"), MapItem("r/a"), MapItem("r/a/b"), MapItem("r/c"), Item("r/a/b/c")},
         MoreThan,
         jump + "'r/c', this = 'r/a/b/c'"},
        {{Item("r"), Item("r/a")}, NotMatched, mismatch},
        {{ListItem("r"), Item("r/a")}, NotMatched, mismatch},
        {{MapItem("r"), Item("r/0")}, NotMatched, mismatch},
    };
    for (const auto& [items, code, text] : rows)
    {
        nvl::Path path = Root / "old";
        Setting setting = Number(7);
        EXPECT_EQ(Deserialize(items, path, setting), Result(code, text));
        EXPECT_EQ(path, Root / "old");
        EXPECT_EQ(setting, Number(7));
    }
}

TEST(RawSetting, CannotBeWrittenWithoutPathOrValue)
{
    const std::string noValue = "[RawSetting] Invalid value state";
    const std::string noPath = "[RawSetting] Path to str fail: state = 7";
    const std::vector<std::tuple<nvl::Path, Setting, int, std::string>> rows{
        {Root, {List{Number(1), WithoutValue()}}, plk::codes::InvalidState, noValue},
        {Root / "a b", WithoutValue(), plk::codes::InvalidState, noValue},
        {Root, {Map{{"my_key", {}}}}, plk::codes::InvalidArgument, noPath},
    };
    for (const auto& [path, setting, code, text] : rows)
    {
        try
        {
            Items items;
            settings_manager::Serialize(path, setting, items);
            ADD_FAILURE() << "written: " << text;
        }
        catch (const std::exception&)
        {
            EXPECT_EQ(nvl::ProcessException(), Result(code, text));
        }
    }
}

TEST(SettingValue, KeepsItsKindBothWays)
{
    using Variant = Setting::Variant;
    const short number = -3;
    for (const Variant& value : {Variant(List{{1, {true}}}), Variant(number), Variant(4U)})
    {
        const auto alone = settings_manager::ToValue(Setting{value, {true}});
        EXPECT_EQ(alone.value.index(), value.index());
        EXPECT_EQ(settings_manager::ToSetting(alone), Setting{value});
    }
    EXPECT_THROW((void)settings_manager::ToValue(WithoutValue()), std::bad_variant_access);
}

TEST(PathToStr, AlwaysHasAText)
{
    EXPECT_EQ(fmt::format("{}|{}", Root, Root / "foo" / 3UL), "|foo/3/");
    for (const char reserved : std::string("/\\\"'`%_ "))
    {
        const nvl::Path path = Root / "foo" / (std::string("a") + reserved);
        EXPECT_EQ(settings_manager::PathToStr(path), "<path to str fail: state = 7>");
    }
    EXPECT_EQ(settings_manager::PathToStr(Root / 65536UL), "<path to str fail: state = 2>");
}
