#include <tuple>

#include <fmt/format.h>

#include <component/settings_manager/i_settings_manager.h>

#include "store_support.h"

namespace settings_manager::service {
namespace {

constexpr int Value = update::ValueChanged;
constexpr int Attributes = update::AttributesChanged;
constexpr int Created = update::Created | Value | Attributes;
constexpr int Deleted = update::Deleted | Value;

constexpr auto New = WriteMode::Create;
constexpr auto SetValue = WriteMode::SetValue;
constexpr auto SetSetting = WriteMode::SetSetting;
constexpr WriteMode Delete{100};
constexpr WriteMode Lock{101};
constexpr WriteMode Unlock{102};

/// What all rows of the tables begin with.
void Fill(Store& store)
{
    Create(store, "t", SampleTree());
    Create(store, "locked", {Map{{"in", Text("x")}, {"map", {Map{}}}}, {.isReadOnly = true}});
}

Change Do(Store& store, WriteMode what, const char* path, const Setting& setting)
{
    if (what == Delete)
    {
        return store.Delete(ReadPath(path));
    }
    return what == Lock || what == Unlock ? store.SetReadOnly(ReadPath(path), what == Lock)
                                          : Write(store, what, path, setting);
}

}  // namespace

TEST(Store, ComesBackFromTheDatabaseAsItWas)
{
    const TempFolder folder;
    Setting written;
    {
        const auto store = OpenStore(folder.File("db"));
        Fill(*store);
        Do(*store, SetValue, "t/a/b", Text("y", true));
        Do(*store, SetSetting, "t/a/c", {List{Text("0"), Text("1"), Text("2")}});
        Do(*store, Delete, "t/a/c/1", {});
        Do(*store, Lock, "t/a", {});
        written = ReadAll(*store);
    }
    EXPECT_FALSE(std::filesystem::exists(folder.File("db-wal"))) << "left by an orderly end";
    const auto store = OpenStore(folder.File("db"));
    EXPECT_EQ(ReadAll(*store), written);
    const Setting list{List{Text("0"), {}, Text("2")}};
    EXPECT_EQ(ReadAll(*store, "t/a"),
              (Setting{Map{{"b", Text("y")}, {"c", list}}, {.isReadOnly = true}}));
    EXPECT_EQ(ReadAll(*store, "t/kinds"), std::get<Map>(SampleTree().value).at("kinds"));
}

TEST(Store, RefusesWithACodeAndChangesNothing)
{
    struct Row
    {
        int code;
        WriteMode what;
        const char* path;
        Setting setting = Text("z");
    };
    const Row rows[] = {
        {codes::Found, New, "t/a/b"},
        {codes::Found, New, "", {Map{}}},
        {codes::NotFound, New, "t/no/b"},
        {codes::NotMatched, New, "t/a/b/c"},
        {codes::NotMatched, New, "t/a/c/x"},
        {codes::AccessDenied, New, "locked/map/new"},
        {codes::NotFound, SetValue, "t/no"},
        {codes::AccessDenied, SetSetting, "t/fixed"},
        {codes::AccessDenied, SetValue, "t", {Map{{"fixed", Text("held")}}}},
        {codes::AccessDenied, SetValue, "t", {Map{}}},
        {codes::Prohibited, SetSetting, ""},
        {codes::NotFound, Delete, "t/no"},
        {codes::Prohibited, Delete, ""},
        {codes::AccessDenied, Delete, "locked"},
        {codes::AccessDenied, Delete, "locked/in"},
        {codes::AccessDenied, Delete, "t"},
        {codes::NotFound, Lock, "t/no"},
    };
    const TempFolder folder;
    auto store = OpenStore(folder.File("db"));
    Fill(*store);
    const Setting before = ReadAll(*store);
    for (const Row& row : rows)
    {
        const auto work = [&]
        {
            Do(*store, row.what, row.path, row.setting);
        };
        EXPECT_EQ(CodeOf(work), row.code) << int(row.what) << " of " << row.path;
        EXPECT_EQ(ReadAll(*store), before) << int(row.what) << " of " << row.path;
    }
    store.reset();
    EXPECT_EQ(ReadAll(*OpenStore(folder.File("db"))), before);
}

TEST(Store, TellsEachSubscriberWhatAWriteMeansThere)
{
    const Setting map{Map{{"x", Text("1")}}};
    const Setting other{Map{{"b", Text("y")}, {"c", {List{}}}}};
    // What is done where, who has subscribed to what and is told of what; no kinds: of nothing.
    const std::tuple<WriteMode, const char*, Setting, const char*, const char*, int> rows[] = {
        {New, "t/n", map, "t/n", "t/n/", Created},
        {New, "t/n", map, "t/n/x", "t/n/x/", Created},
        {New, "t/n", map, "t/n/y", "", 0},
        {SetValue, "t/a/b", Text("y"), "t/a/b", "t/a/b/", Value},
        {SetValue, "t/a!", Text("y"), "t/a", "", 0},
        {SetValue, "t", SampleTree(), "t", "", 0},
        {SetValue, "t/a", other, "t/a", "t/a/", Value},
        {SetValue, "t/a", other, "t/a/b", "t/a/b/", Value},
        {SetSetting, "t/a/b", Text("y", true), "t/a/b", "t/a/b/", Value | Attributes},
        {SetSetting, "t/a", Text("no map"), "t/a", "t/a/", Value},
        {SetSetting, "t/a", Text("no map"), "t/a/b", "t/a/b/", Deleted},
        {Lock, "t/a", {}, "t/a", "t/a/", Attributes},
        {Lock, "t/a", {}, "t/a/b", "", 0},
        {Lock, "t/fixed", {}, "t/fixed", "", 0},
        {Unlock, "t/fixed", {}, "t/fixed", "t/fixed/", Attributes},
        {Delete, "t/a", {}, "t/a", "t/a/", Deleted},
        {Delete, "t/a", {}, "t/a/b", "t/a/b/", Deleted},
        {Delete, "t/a", {}, "t/a/z", "", 0},
    };
    for (const auto& [what, path, setting, subscribed, wanted, kinds] : rows)
    {
        Store store(nullptr);
        Fill(store);
        const auto told = UpdateFor(ReadPath(subscribed), Do(store, what, path, setting));
        const auto hint = fmt::format("{} of {} at {}", int(what), path, subscribed);
        EXPECT_EQ(told ? TextOf(told->path) : "", wanted) << hint;
        EXPECT_EQ(told ? told->kinds : 0, kinds) << hint;
    }
}

TEST(Store, KeepsASnapshotWhileEverythingIsWritten)
{
    Store store(nullptr);
    Fill(store);
    const Setting before = ReadAll(store);
    const SnapshotReader reader(store.At({}), "");
    Do(store, SetValue, "t/a/b", Text("new"));
    Do(store, Delete, "t/kinds", {});
    Do(store, Unlock, "locked", {});
    Do(store, Delete, "locked", {});
    Do(store, New, "t/more", SampleTree());
    EXPECT_EQ(ReadAll(reader), before);
    EXPECT_NE(ReadAll(store), before);
}

TEST(StagedWrite, RefusesPathsThatMakeNoTree)
{
    using Paths = std::vector<const char*>;
    const std::pair<int, Paths> rows[] = {
        {codes::SettingsAreRequired, {}},
        {codes::LessThan, {"t/", "u/x/"}},
        {codes::LessThan, {"t/", "tt/x/"}},
        {codes::MoreThan, {"t/", "t/a/", "t/b/", "t/a/c/"}},
        {codes::Found, {"t/", "t/a/", "t/b/", "t/a/"}},
        {codes::NotMatched, {"t/", "t/0/"}},
        {codes::NotMatched, {"t/", "t/list/", "t/list/a/"}},
        {codes::NotMatched, {"t/", "t/text/", "t/text/a/"}},
        {codes::InvalidArgument, {"t/", "t/a"}},
        {codes::InvalidArgument, {"t/", "t/list/", "t/list/007/"}},
        {codes::InvalidArgument, {"t/", "t/list/", "t/list/65536/"}},
        {codes::InvalidArgument, {"t/", "t/a b/"}},
    };
    Store store(nullptr);
    for (const auto& [code, paths] : rows)
    {
        Items items;
        for (const std::string_view path : paths)
        {
            const Setting node = path.ends_with("list/")   ? Setting{List{}}
                                 : path.ends_with("text/") ? Text("")
                                                           : Setting{Map{}};
            items.emplace_back(nvl::Root, node).path = path;
        }
        const auto hint = paths.empty() ? "nothing" : paths.back();
        EXPECT_EQ(CodeOf([&] { Write(store, New, "t", items); }), code) << hint;
        EXPECT_EQ(ReadAll(store), Setting{Map{}}) << hint;
    }
    EXPECT_EQ(CodeOf([] { StagedWrite(New, {}, StagedWrite::MostNodes + 1); }),
              codes::InsufficientResources);
}

TEST(StagedWrite, RefusesBlocksThatAreNoValue)
{
    const std::pair<int, impl::Raw::Block> rows[] = {
        {codes::InvalidIndex, {16}},
        {codes::InvalidIndex, {1, 1}},
        {codes::InvalidSize, {6, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {codes::InvalidSize, {10}},
        {codes::InvalidSize, {10, 0, 0, 0, 0, 0, 0, 0, 2}},
        {codes::InvalidArgument, {10, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 'x'}},
        {codes::InvalidSize, {11, 0, 0, 0, 0, 0, 0, 0, 255, 255, 255, 255, 255, 255, 255, 255}},
        {codes::InvalidArgument, {3, 0, 0, 0, 0, 0, 0, 0, 2}},
        {codes::InvalidArgument, {5, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1}},
    };
    Store store(nullptr);
    auto items = ItemsOf("t", {});
    for (const auto& [code, block] : rows)
    {
        items[0].value = block;
        items[0].value.resize(std::max<std::size_t>(block.size(), 16));
        EXPECT_EQ(CodeOf([&] { Write(store, New, "t", items); }), code) << int(block[0]);
    }
    items[0].value.resize(15);
    EXPECT_EQ(CodeOf([&] { Write(store, New, "t", items); }), codes::InvalidSize);
    items[0].attrib = impl::Raw::Block(16, 1);
    EXPECT_EQ(CodeOf([&] { Write(store, New, "t", items); }), codes::InvalidVersion);
    EXPECT_EQ(ReadAll(store), Setting{Map{}});
}

}  // namespace settings_manager::service
