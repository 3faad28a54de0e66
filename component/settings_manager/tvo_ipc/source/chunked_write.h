#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include <component/logger/tracer.h>
#include <component/settings_manager/raw_item.h>
#include <component/settings_manager/tvo_ipc/wz_ism.h>

namespace settings_manager::ipc {

/// Sends a tree to the service: as much as fits with the first message, the rest in further ones.
class ChunkedWrite final
{
public:
    ChunkedWrite(const vx_settings_manager_WzISM& client, trace::Tracer& tracer);

    /// @param mode  one of `vx_settings_manager_WzISM_mode_...`
    int Run(std::uint8_t mode, std::string_view path, std::span<const impl::RawItem> items);

private:
    int SendFirst(std::uint8_t mode, std::string_view path, std::span<const impl::RawItem> items);
    int SendRest();

    vx_settings_manager_WzISM m_client;
    trace::Tracer& m_tracer;
    std::span<const impl::RawItem> m_rest;  ///< not sent yet
    std::uint64_t m_token = 0;
};

}  // namespace settings_manager::ipc
