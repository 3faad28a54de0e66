#pragma once

#include "node.h"

namespace settings_manager::service {

/// The whole tree of settings, held in memory. Snapshots cost nothing: a node that somebody else
/// holds is copied before it changes, any other changes where it stands.
class Tree final
{
public:
    /// @param root  a map
    explicit Tree(NodePtr root);

    [[nodiscard]] Snapshot Root() const
    {
        return m_root;
    }

    /// @returns null where nothing stands
    [[nodiscard]] Snapshot At(const nvl::Path& path) const;

    /// Puts a setting below its parent, which is there, or in the place of the one that stands
    /// there.
    void Put(const nvl::Path& path, NodePtr node);

    /// Takes away a setting that is there and not the root.
    void Erase(const nvl::Path& path);

private:
    [[nodiscard]] Node& OwnParentOf(const nvl::Path& path);

    NodePtr m_root;
};

}  // namespace settings_manager::service
