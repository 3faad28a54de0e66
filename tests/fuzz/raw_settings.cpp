#include <algorithm>
#include <tuple>

#include <component/settings_manager/raw_setting.h>
#include <component/settings_manager/tvo_ipc/limits.h>
#include <component/settings_manager/tvo_ipc/nodes.h>

#include "fuzz_target.h"
#include "input.h"

namespace fuzz {
namespace {

namespace ipc = settings_manager::ipc;
using settings_manager::Setting;
using settings_manager::impl::Raw;
using settings_manager::impl::RawItem;
using tvo::ipc::arena::Reference;
using Items = std::vector<RawItem>;

bool AreEqual(const Items& left, const Items& right)
{
    const auto fields = [](const RawItem& item)
    {
        return std::tie(item.path, item.value, item.attrib);
    };
    return std::ranges::equal(left, right, {}, fields, fields);
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
    Items written;
    settings_manager::Serialize(path, setting, written);
    nvl::Path samePath;
    Setting same;
    Require(settings_manager::Deserialize(written, samePath, same) == nvl::ResultOk,
            "what was read can be passed on");
    Items again;
    settings_manager::Serialize(samePath, same, again);
    Require(AreEqual(written, again), "what is passed on stays what it was");
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
}

/// The bytes as a message: where the nodes stand, and the arena.
Items ReadArena(std::string_view bytes)
{
    Input input(bytes);
    const auto nodes = input.Take<Reference>();
    bytes = input.Bytes(bytes.size());
    std::vector<unsigned char> storage(bytes.begin(), bytes.end());
    unsigned char* const end = storage.data() + storage.size();
    Items items;
    const bool isGood = ipc::ReadNodes({storage.data(), end, end}, nodes, items);
    Require(items.size() <= ipc::limits::NodesInMessage, "a message has its limit");
    Require(!isGood || items.size() * sizeof(vx_settings_manager_Types_WzNode) == nodes.size,
            "every good node counts");
    for (const RawItem& item : items)
    {
        Require(item.path.size() <= ipc::limits::Path && bytes.find(item.path) != bytes.npos,
                "a path lies inside the arena");
        Require(std::max(item.value.size(), item.attrib.size()) <= bytes.size() &&
                    item.value.size() <= ipc::limits::Value &&
                    item.attrib.size() <= ipc::limits::Attrib,
                "a block keeps to its limit");
    }
    return items;
}

void Run(std::string_view bytes)
{
    const Items items = ReadArena(bytes);
    ReadTree(items);
    SendOn(items);
}

std::string Seed(const Items& items, Reference wrong = {})
{
    tvo::ipc::arena::Buffer buffer(ipc::limits::ChunkArena);
    Reference nodes{};
    Require(ipc::PackNodes(items, *buffer.Get(), nodes).has_value(), "a seed can be packed");
    return BytesOf(wrong.size == 0 ? nodes : wrong)
        .append(buffer.Get()->start, buffer.Get()->current);
}

std::vector<std::string> Seeds()
{
    std::vector<std::string> seeds{""};
    const Setting::List list{{1L, {true}}, {std::string("text")}, {Setting::Blob{1, 2}}, {0.5}};
    const Setting tree{Setting::Map{{"b", {list}}, {"c", {Setting::Map()}}}};
    for (const Setting& setting : {tree, Setting{Setting::List(63)}, Setting{true}})
    {
        Items items;
        settings_manager::Serialize(nvl::Root / "a", setting, items);
        seeds.push_back(Seed(items));
    }
    Items items;
    settings_manager::Serialize(nvl::Root, tree, items);
    for (const Reference& wrong : {Reference{2, 24}, {0, 24 * 65}, {~0U, ~0U}, {0, 25}})
    {
        seeds.push_back(Seed(items, wrong));
    }
    items.front().path = "b/";
    seeds.push_back(Seed(items));
    return seeds;
}

}  // namespace

const Target RawSettings{"raw_settings", &Run, &Seeds};

}  // namespace fuzz
