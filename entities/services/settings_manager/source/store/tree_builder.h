#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <component/nvl/level_reader.h>

#include "node.h"

namespace settings_manager::service {

/// Builds a tree of its nodes, each of which comes before what is below it, the children of a node
/// in any order. Nothing is taken on trust.
/// @note All operations throw nvl::Error; after that the builder is of no use.
class TreeBuilder final
{
public:
    /// @param root  the text of the path at which the tree begins, a separator behind every level
    explicit TreeBuilder(std::string root);

    /// Puts a node below the last one or one of those above that.
    /// @throws nvl::Error `LessThan` for a path that is not below the root (or, of the first node,
    ///         not the root), `MoreThan` where a node in between is missing, `InvalidArgument` for
    ///         any other bad text, `NotMatched` below a parent of another kind, `Found` for a node
    ///         that was there; the codes of `CheckValue`
    void Add(std::string_view path, impl::Raw::Block value, bool isReadOnly);

    [[nodiscard]] std::size_t Count() const noexcept
    {
        return m_count;
    }

    /// @param level  the last one of the root's path
    /// @throws nvl::Error `SettingsAreRequired` without a node, `Found` for a node that came twice
    [[nodiscard]] NodePtr Finish(nvl::Level level);

private:
    /// One step of the way from the root to the node that came last.
    struct Step
    {
        Node* node;
        std::size_t textSize;
    };

    [[nodiscard]] Node& ClimbToParentOf(std::string_view path);
    [[nodiscard]] nvl::Level ReadLevel(std::string_view text, std::string_view path) const;

    nvl::LevelReader m_levelReader;
    std::string m_text;  ///< of the node that came last
    NodePtr m_root;
    std::vector<Step> m_way;
    std::size_t m_count = 0;
};

}  // namespace settings_manager::service
