#pragma once

namespace settings_manager::ipc {

/// The service's answer does not fit what was asked. A code of this client's own, without a text.
inline constexpr int Mismatch = static_cast<int>(0x80000074U);

}  // namespace settings_manager::ipc
