#include "tree_builder.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <component/nvl/error.h>
#include <component/settings_manager/id_specification.h>

#include "value_rules.h"

namespace settings_manager::service {
namespace {

[[noreturn]] void Refuse(int code, const char* what, std::string_view path)
{
    throw nvl::Error(code, fmt::format("{}: '{}'", what, path));
}

/// Brings the children into their order.
void Sort(Node& node)
{
    auto& children = node.children;
    const auto isBefore = [](const NodePtr& left, const NodePtr& right)
    {
        return left->level < right->level;
    };
    if (!std::is_sorted(children.begin(), children.end(), isBefore))
    {
        std::sort(children.begin(), children.end(), isBefore);
    }
    const auto isEqual = [](const NodePtr& left, const NodePtr& right)
    {
        return left->level == right->level;
    };
    if (std::adjacent_find(children.begin(), children.end(), isEqual) != children.end())
    {
        throw nvl::Error(nvl::ItemExists);
    }
    for (const NodePtr& child : children)
    {
        Sort(*child);
    }
}

}  // namespace

TreeBuilder::TreeBuilder(std::string root)
    : m_levelReader(meta::GetIdSpecification()), m_text(std::move(root))
{}

void TreeBuilder::Add(std::string_view path, impl::Raw::Block value, bool isReadOnly)
{
    CheckValue(value);
    const auto node = std::make_shared<Node>(Node{{}, std::move(value), isReadOnly, {}});
    if (m_root == nullptr)
    {
        if (path != m_text)
        {
            Refuse(plk::codes::LessThan, "first node is not the root", path);
        }
        m_root = node;
    }
    else
    {
        Node& parent = ClimbToParentOf(path);
        node->level = ReadLevel(path.substr(m_text.size()), path);
        if (!MayHold(parent, node->level))
        {
            throw nvl::Error(nvl::PathMismatch);
        }
        parent.children.push_back(node);
    }
    m_text = path;
    m_way.push_back({node.get(), m_text.size()});
    ++m_count;
}

NodePtr TreeBuilder::Finish(nvl::Level level)
{
    if (m_root == nullptr)
    {
        throw nvl::Error(plk::codes::SettingsAreRequired, "tree without a node");
    }
    m_root->level = std::move(level);
    Sort(*m_root);
    m_way.clear();
    return std::exchange(m_root, nullptr);
}

/// Leaves in `m_text` the text of the parent's path.
Node& TreeBuilder::ClimbToParentOf(std::string_view path)
{
    while (!path.starts_with(m_text))
    {
        m_way.pop_back();
        if (m_way.empty())
        {
            Refuse(plk::codes::LessThan, "node outside of the tree", path);
        }
        m_text.resize(m_way.back().textSize);
    }
    if (path.size() == m_text.size())
    {
        throw nvl::Error(nvl::ItemExists);
    }
    return *m_way.back().node;
}

/// Reads one level in its only form, so that no node can come under two texts.
nvl::Level TreeBuilder::ReadLevel(std::string_view text, std::string_view path) const
{
    nvl::Path levels;
    const nvl::IdState state = m_levelReader.Read(text, levels);
    if (state == nvl::IdState::Ok && levels.size() > 1)
    {
        Refuse(plk::codes::MoreThan, "node without its parent", path);
    }
    std::string only;
    if (state == nvl::IdState::Ok)
    {
        AppendLevel(only, levels.front());
    }
    if (only != text)
    {
        Refuse(plk::codes::InvalidArgument, "bad path of a node", path);
    }
    return std::move(levels.front());
}

}  // namespace settings_manager::service
