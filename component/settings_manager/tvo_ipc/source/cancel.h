#pragma once

#include <cstdint>

#include <component/logger/tracer.h>
#include <component/settings_manager/tvo_ipc/wz_ism.h>

namespace settings_manager::ipc {

/// Tells the service that a transfer in chunks will not go on. Whatever comes of it, the failure
/// before it is what counts.
/// @returns `MediaError` or the service's result
int Cancel(vx_settings_manager_WzISM* client, std::uint64_t token, trace::Tracer& tracer);

}  // namespace settings_manager::ipc
