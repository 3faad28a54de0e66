#pragma once

#include <memory>
#include <string>
#include <vector>

#include <component/nvl/path.h>
#include <component/settings_manager/raw.h>

namespace settings_manager::service {

struct Node;

using NodePtr = std::shared_ptr<Node>;

/// A tree as it was at some moment: whoever writes copies the nodes that somebody else holds.
using Snapshot = std::shared_ptr<const Node>;

/// A setting with all that is below it, in the form in which it is kept. Trees are at most as deep
/// as a path text of 512 bytes has levels, so they may be walked by recursion.
struct Node
{
    nvl::Level level;         ///< the last level of the path; of no meaning in the root
    impl::Raw::Block value;   ///< the one possible block of its value; a list's says 0 elements
    bool isReadOnly = false;  ///< forbids writing to the node and to all below it
    std::vector<NodePtr> children;  ///< of a list by index, with gaps; of a map by key
};

/// The kind of value, one of `nvl::kind`.
[[nodiscard]] std::size_t KindOf(const Node& node) noexcept;

/// Whether a child of this level may stand below the node: an index in a list, a name in a map.
[[nodiscard]] bool MayHold(const Node& node, const nvl::Level& level) noexcept;

/// The value block as it travels, where a list tells how many elements it has.
[[nodiscard]] impl::Raw::Block ValueOf(const Node& node);

/// The place of a child, or where it would have to be inserted.
[[nodiscard]] std::vector<NodePtr>::const_iterator PlaceOf(const Node& node,
                                                           const nvl::Level& level);

/// @returns the child, or null
[[nodiscard]] NodePtr ChildOf(const Node& node, const nvl::Level& level);

/// @returns the node at a path that begins below `root`, or null
[[nodiscard]] Snapshot Find(const Snapshot& root,
                            nvl::Path::const_iterator begin,
                            nvl::Path::const_iterator end);

/// Appends one level to the text of a path.
void AppendLevel(std::string& text, const nvl::Level& level);

/// The text of a path that is known to have one.
[[nodiscard]] std::string TextOf(const nvl::Path& path);

}  // namespace settings_manager::service
