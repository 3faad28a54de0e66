#include "node.h"

#include <algorithm>
#include <cstring>

#include <fmt/format.h>

#include <component/nvl/value.h>

namespace settings_manager::service {

std::size_t KindOf(const Node& node) noexcept
{
    return node.value.front();
}

bool MayHold(const Node& node, const nvl::Level& level) noexcept
{
    const std::size_t kind = KindOf(node);
    return std::holds_alternative<std::string>(level) ? kind == nvl::kind::Map
                                                      : kind == nvl::kind::List;
}

impl::Raw::Block ValueOf(const Node& node)
{
    impl::Raw::Block block = node.value;
    if (KindOf(node) == nvl::kind::List && !node.children.empty())
    {
        const unsigned long length = std::get<unsigned long>(node.children.back()->level) + 1;
        std::memcpy(block.data() + sizeof(length), &length, sizeof(length));
    }
    return block;
}

std::vector<NodePtr>::const_iterator PlaceOf(const Node& node, const nvl::Level& level)
{
    return std::lower_bound(node.children.begin(),
                            node.children.end(),
                            level,
                            [](const NodePtr& child, const nvl::Level& wanted)
                            { return child->level < wanted; });
}

NodePtr ChildOf(const Node& node, const nvl::Level& level)
{
    const auto place = PlaceOf(node, level);
    return place != node.children.end() && (*place)->level == level ? *place : nullptr;
}

Snapshot Find(const Snapshot& root, nvl::Path::const_iterator begin, nvl::Path::const_iterator end)
{
    Snapshot node = root;
    while (node != nullptr && begin != end)
    {
        node = ChildOf(*node, *begin++);
    }
    return node;
}

void AppendLevel(std::string& text, const nvl::Level& level)
{
    if (const auto* index = std::get_if<unsigned long>(&level))
    {
        const fmt::format_int digits(*index);
        text.append(digits.data(), digits.size());
    }
    else
    {
        text += std::get<std::string>(level);
    }
    text += '/';
}

std::string TextOf(const nvl::Path& path)
{
    std::string text;
    for (const nvl::Level& level : path)
    {
        AppendLevel(text, level);
    }
    return text;
}

}  // namespace settings_manager::service
