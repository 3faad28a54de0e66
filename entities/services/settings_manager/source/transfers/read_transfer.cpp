#include "read_transfer.h"

#include <component/nvl/error.h>
#include <component/settings_manager/tvo_ipc/limits.h>

namespace settings_manager::service {

void ReadTransfer::Pack(wz_arena& arena, tvo::ipc::arena::Reference& nodes)
{
    m_reader.Read(ipc::limits::NodesInMessage - m_items.size(), m_items);
    const auto packed = ipc::PackNodes(m_items, arena, nodes);
    if (!packed)
    {
        throw nvl::Error(plk::codes::OutOfSpace, "node does not fit into a message");
    }
    m_items.erase(m_items.begin(), m_items.begin() + static_cast<std::ptrdiff_t>(*packed));
}

}  // namespace settings_manager::service
