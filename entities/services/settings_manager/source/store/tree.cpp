#include "tree.h"

#include <utility>

namespace settings_manager::service {
namespace {

/// Makes the node one that may change: everything runs in one thread, so the count is exact.
Node& Own(NodePtr& node)
{
    if (node.use_count() > 1)
    {
        node = std::make_shared<Node>(*node);
    }
    return *node;
}

std::vector<NodePtr>::iterator PlaceIn(Node& node, const nvl::Level& level)
{
    return node.children.begin() + (PlaceOf(node, level) - node.children.cbegin());
}

}  // namespace

Tree::Tree(NodePtr root) : m_root(std::move(root)) {}

Snapshot Tree::At(const nvl::Path& path) const
{
    return Find(m_root, path.begin(), path.end());
}

void Tree::Put(const nvl::Path& path, NodePtr node)
{
    if (path.empty())
    {
        m_root = std::move(node);
        return;
    }
    Node& parent = OwnParentOf(path);
    const auto place = PlaceIn(parent, path.back());
    if (place != parent.children.end() && (*place)->level == path.back())
    {
        *place = std::move(node);
    }
    else
    {
        parent.children.insert(place, std::move(node));
    }
}

void Tree::Erase(const nvl::Path& path)
{
    Node& parent = OwnParentOf(path);
    parent.children.erase(PlaceIn(parent, path.back()));
}

Node& Tree::OwnParentOf(const nvl::Path& path)
{
    Node* node = &Own(m_root);
    for (auto level = path.begin(); level != path.end() - 1; ++level)
    {
        node = &Own(*PlaceIn(*node, *level));
    }
    return *node;
}

}  // namespace settings_manager::service
