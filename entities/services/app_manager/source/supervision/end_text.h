#pragma once

#include <string>

#include <shared/common/tvo/service/i_service_loop.h>

namespace app_manager::service {

/// @returns for instance "exit status 3" or "signal 11 (Segmentation fault)"
[[nodiscard]] std::string TextOf(const tvo::service::ChildEnd& end);

}  // namespace app_manager::service
