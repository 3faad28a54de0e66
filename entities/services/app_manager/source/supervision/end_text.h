#pragma once

#include <string>

#include <component/app_manager/tvo_ipc/control.h>
#include <shared/common/tvo/service/i_service_loop.h>

namespace app_manager::service {

/// @returns for instance "crash"
[[nodiscard]] const char* NameOf(control::EndKind kind);

/// @returns for instance "exit status 3" or "signal 11 (Segmentation fault)"
[[nodiscard]] std::string TextOf(const tvo::service::ChildEnd& end);

}  // namespace app_manager::service
