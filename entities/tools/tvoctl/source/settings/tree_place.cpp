#include "tree_place.h"

#include <string>
#include <utility>

namespace tvoctl {
namespace {

using settings_manager::Setting;

/// The same for reading and writing: `Node` is a setting or a constant one.
template <class Node>
Node* Find(Node* node, Levels way)
{
    for (auto level = way.begin(); node != nullptr && level != way.end(); ++level)
    {
        const auto* const name = std::get_if<std::string>(&*level);
        auto* const map = std::get_if<nvl::kind::Map>(&node->value);
        node = nullptr;
        if (name != nullptr && map != nullptr)
        {
            const auto found = map->find(*name);
            node = found != map->end() ? &found->second : nullptr;
        }
    }
    return node;
}

void PutMember(Setting::Map& map, const std::string& name, std::optional<Setting> now)
{
    if (now)
    {
        map.insert_or_assign(name, std::move(*now));
    }
    else
    {
        map.erase(name);
    }
}

}  // namespace

const Setting* FindPlace(const Setting& tree, Levels way)
{
    return Find(&tree, way);
}

void PutPlace(std::optional<Setting>& tree, Levels way, std::optional<Setting> now)
{
    if (way.empty())
    {
        tree = std::move(now);
        return;
    }
    Setting* const parent = Find(tree ? &*tree : nullptr, way.first(way.size() - 1));
    auto* const map = parent != nullptr ? std::get_if<nvl::kind::Map>(&parent->value) : nullptr;
    const auto* const name = std::get_if<std::string>(&way.back());
    if (map != nullptr && name != nullptr)
    {
        PutMember(*map, *name, std::move(now));
    }
}

}  // namespace tvoctl
