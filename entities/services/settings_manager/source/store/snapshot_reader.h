#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <component/settings_manager/raw_item.h>

#include "node.h"

namespace settings_manager::service {

/// Hands out a tree node by node: a node before its children, list elements by index, map members
/// by key. Whatever is written meanwhile, the tree is that of the beginning.
class SnapshotReader final
{
public:
    /// @param path  the text of the path at which the tree stands
    SnapshotReader(Snapshot root, std::string path);

    /// How many nodes the whole tree has.
    [[nodiscard]] std::uint64_t Count() const;

    /// Appends the next nodes to the items.
    /// @param most  how many; fewer only at the end
    void Read(std::size_t most, std::vector<impl::RawItem>& items);

    [[nodiscard]] bool IsAtEnd() const noexcept
    {
        return m_next == nullptr;
    }

private:
    struct Step
    {
        const Node* node;
        std::size_t nextChild;
        std::size_t textSize;
    };

    void GoOn();

    Snapshot m_root;
    const Node* m_next;
    std::string m_text;  ///< of the path of the next node
    std::vector<Step> m_way;
};

}  // namespace settings_manager::service
