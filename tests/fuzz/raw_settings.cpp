#include <cstring>

#include <component/settings_manager/raw_setting.h>
#include <component/settings_manager/tvo_ipc/limits.h>
#include <component/settings_manager/tvo_ipc/nodes.h>

#include "fuzz_target.h"
#include "setting_items.h"

namespace fuzz {
namespace {

namespace ipc = settings_manager::ipc;
using settings_manager::Setting;
using settings_manager::impl::Raw;
using settings_manager::impl::RawItem;
using tvo::ipc::arena::Reference;
using Items = std::vector<RawItem>;

enum Form : std::uint8_t
{
    ListOfItems,
    NodesInArena,
};

bool AreEqual(const Items& left, const Items& right)
{
    return std::equal(left.begin(),
                      left.end(),
                      right.begin(),
                      right.end(),
                      [](const RawItem& one, const RawItem& other) {
                          return one.path == other.path && one.value == other.value &&
                                 one.attrib == other.attrib;
                      });
}

/// How many nodes a tree has; a list may be given with elements that nobody has sent.
std::size_t CountOf(const Setting& setting)
{
    std::size_t count = 1;
    if (const auto* list = std::get_if<Setting::List>(&setting.value))
    {
        for (const Setting& child : *list)
        {
            count += CountOf(child);
        }
    }
    else if (const auto* map = std::get_if<Setting::Map>(&setting.value))
    {
        for (const auto& [name, child] : *map)
        {
            count += CountOf(child);
        }
    }
    return count;
}

void ReadTree(const Items& items)
{
    const nvl::Path noPath{std::string("was here before")};
    const Setting noSetting{std::string("was here before")};
    nvl::Path path = noPath;
    Setting setting = noSetting;
    const auto [code, text] = settings_manager::Deserialize(items, path, setting);
    Require(code <= 0 && (code == 0) == text.empty(), "a list is taken or refused");
    if (code != 0)
    {
        Require(path == noPath && setting == noSetting, "a refused list changes nothing");
        return;
    }
    constexpr std::size_t MostIndices = 0x10000;
    constexpr std::size_t MostNodes = 10000;
    const std::size_t count = CountOf(setting);
    Require(count <= items.size() * (MostIndices + 1), "a list has as many elements as indices");
    if (count > MostNodes)
    {
        return;
    }
    Items written;
    settings_manager::Serialize(path, setting, written);
    Require(written.size() == count, "a node becomes one item");
    nvl::Path samePath;
    Setting same;
    Require(settings_manager::Deserialize(written, samePath, same) == nvl::ResultOk,
            "what was read can be passed on");
    Items again;
    settings_manager::Serialize(samePath, same, again);
    Require(AreEqual(written, again), "what is passed on stays what it was");
}

/// Whether a block of an item stands in the arena.
template <class Block>
bool LiesIn(std::string_view bytes, const Block& block, std::size_t limit)
{
    const std::string_view text(reinterpret_cast<const char*>(block.data()), block.size());
    return block.size() <= limit && bytes.find(text) != bytes.npos;
}

/// What fits into a message arrives as it was sent.
void SendOn(const Items& items)
{
    tvo::ipc::arena::Buffer buffer(ipc::limits::ChunkArena);
    Reference nodes{};
    const auto packed = ipc::PackNodes(items, *buffer.Get(), nodes);
    Items received;
    Require(!packed || ipc::ReadNodes(*buffer.Get(), nodes, received), "own nodes can be read");
    const auto count = static_cast<std::ptrdiff_t>(packed.value_or(0));
    Require(AreEqual(received, {items.begin(), items.begin() + count}), "nodes arrive");
    const bool isFull = !packed || *packed < items.size();
    const std::size_t next = packed.value_or(0);
    Require(!isFull || next == ipc::limits::NodesInMessage ||
                items[next].path.size() > ipc::limits::Path ||
                items[next].value.size() > ipc::limits::Value ||
                items[next].attrib.size() > ipc::limits::Attrib,
            "what is in its limits has room");
}

/// The bytes as a message: where the nodes stand, and the arena.
Items ReadArena(std::string_view bytes)
{
    Reference nodes{};
    if (bytes.size() < sizeof(nodes))
    {
        return {};
    }
    std::memcpy(&nodes, bytes.data(), sizeof(nodes));
    bytes.remove_prefix(sizeof(nodes));
    std::vector<unsigned char> storage(bytes.begin(), bytes.end());
    unsigned char* const end = storage.data() + storage.size();
    Items items(1);
    const bool isGood = ipc::ReadNodes({storage.data(), end, end}, nodes, items);
    Require(AreEqual({items.begin(), items.begin() + 1}, Items(1)), "nodes are appended");
    items.erase(items.begin());
    Require(items.size() <= ipc::limits::NodesInMessage, "a message has its limit");
    Require(!isGood || items.size() * sizeof(vx_settings_manager_Types_WzNode) == nodes.size,
            "every good node counts");
    for (const RawItem& item : items)
    {
        Require(LiesIn(bytes, item.path, ipc::limits::Path) &&
                    LiesIn(bytes, item.value, ipc::limits::Value) &&
                    LiesIn(bytes, item.attrib, ipc::limits::Attrib),
                "a block lies inside the arena");
    }
    return items;
}

void Run(std::string_view bytes)
{
    Input input(bytes);
    const bool isArena = input.Byte() % 2 == NodesInArena;
    const Items items = isArena ? ReadArena(input.Bytes(bytes.size()))
                                : TakeItems(input, std::string(TakeText(input)));
    ReadTree(items);
    SendOn(items);
}

std::string ListSeed(const std::string& root, const std::string& items)
{
    return std::string(1, ListOfItems) + SeedText(root) + items;
}

/// A message whose nodes are all empty.
std::string ZerosSeed(std::uint32_t count)
{
    const Reference nodes{0, count * ipc::limits::NodeRecord};
    std::string seed(1 + sizeof(nodes) + nodes.size, '\0');
    seed[0] = static_cast<char>(NodesInArena);
    std::memcpy(seed.data() + 1, &nodes, sizeof(nodes));
    return seed;
}

std::string ArenaSeed(const Items& items, Reference wrong = {})
{
    tvo::ipc::arena::Buffer buffer(ipc::limits::ChunkArena);
    Reference nodes{};
    Require(ipc::PackNodes(items, *buffer.Get(), nodes).has_value(), "a seed can be packed");
    nodes = wrong.size == 0 ? nodes : wrong;
    std::string seed(1 + sizeof(nodes), static_cast<char>(NodesInArena));
    std::memcpy(seed.data() + 1, &nodes, sizeof(nodes));
    return seed.append(buffer.Get()->start, buffer.Get()->current);
}

std::vector<std::string> Seeds()
{
    using namespace nvl::kind;
    constexpr auto kind = [](std::size_t number)
    {
        return static_cast<char>(number);
    };
    const std::string map = SeedItem(0, 0, kind(Map));
    const std::string list = SeedItem(0, 'e', kind(List));
    const std::string number(8, '\x7F');
    std::vector<std::string> seeds{
        "",
        ListSeed("", SeedItems({map})),
        ListSeed("a/b", SeedItems({map, list, SeedItem(ItemIsReadOnly, 0, kind(String), "text")})),
        ListSeed("a/b/", SeedItems({map, list, list, SeedItem(1, 0, kind(Blob), "blob")})),
        ListSeed("0/", SeedList(70)),
        ListSeed("", SeedItems({list, SeedItem(0, '\xFA', kind(None))})),  // the index 64250
        ListSeed("", SeedItems({SeedItem(0, 0, kind(List), number), map})),
        ListSeed("", SeedItems({map, SeedItem(0, 'e', kind(Map)), SeedItem(1, 'e', kind(Map))})),
        ListSeed("", SeedItems({SeedItem(0, 0, kind(Double), std::string(8, '\xFF'))})),
        ListSeed("",
                 SeedItems({std::string{ItemHasAnyValue, 0} +
                            SeedText(std::string{kind(String), 0, 0, 0, 0, 0, 0, 0} +
                                     std::string(8, '\xFF'))})),
        ListSeed("/", SeedItems({map})),
        ListSeed("a/",
                 SeedItems({map, std::string{ItemHasAnyPath, 0} + SeedText("b/c/") + kind(Map)})),
    };
    for (std::size_t each = 0; each < Count; ++each)
    {
        seeds.push_back(ListSeed("", SeedItems({SeedItem(0, 0, kind(each), number)})));
    }
    Items items;
    settings_manager::Serialize(
        nvl::Root / "a",
        Setting{Setting::Map{{"b", {Setting::List(3)}}, {"c", {std::string("text")}}}},
        items);
    for (const Reference& wrong : {Reference{}, {2, 24}, {0, 24 * 65}, {~0U, ~0U}, {0, 25}})
    {
        seeds.push_back(ArenaSeed(items, wrong));
    }
    seeds.insert(seeds.end(), {ArenaSeed({}), ZerosSeed(64), ZerosSeed(65)});
    return seeds;
}

}  // namespace

const Target RawSettings{"raw_settings", &Run, &Seeds};

}  // namespace fuzz
