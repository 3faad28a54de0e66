#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <component/logger/tracer.h>
#include <component/settings_manager/raw_item.h>
#include <component/settings_manager/tvo_ipc/wz_ism.h>

namespace settings_manager::ipc {

/// Fetches the items of a tree from the service, message by message.
class ChunkedRead final
{
public:
    ChunkedRead(const vx_settings_manager_WzISM& client, trace::Tracer& tracer);

    /// @returns 0 when as many items have come as the service had promised
    int Run(std::string_view path);

    [[nodiscard]] const std::vector<impl::RawItem>& Items() const
    {
        return m_items;
    }

private:
    int ReadFirst(std::string_view path);
    int ReadRest();
    int ReadNext(wz_arena& arena, bool& isLast);

    vx_settings_manager_WzISM m_client;
    trace::Tracer& m_tracer;
    std::vector<impl::RawItem> m_items;
    std::uint64_t m_count = 0;
    std::uint64_t m_token = 0;
};

}  // namespace settings_manager::ipc
