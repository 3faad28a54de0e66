#pragma once

#include <cstdint>
#include <vector>

#include <component/settings_manager/tvo_ipc/nodes.h>

#include "store/snapshot_reader.h"

namespace settings_manager::service {

/// A tree on its way to a client, message by message.
class ReadTransfer final
{
public:
    explicit ReadTransfer(SnapshotReader reader) : m_reader(std::move(reader)) {}

    /// Puts the next nodes into a message.
    /// @throws nvl::Error `OutOfSpace` when not even one has room
    void Pack(wz_arena& arena, tvo::ipc::arena::Reference& nodes);

    /// Whether everything has been packed.
    [[nodiscard]] bool IsComplete() const noexcept
    {
        return m_items.empty() && m_reader.IsAtEnd();
    }

private:
    SnapshotReader m_reader;
    std::vector<impl::RawItem> m_items;  ///< read and not packed yet
};

}  // namespace settings_manager::service
