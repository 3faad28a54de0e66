#pragma once

#include <string_view>

#include <component/nvl/path.h>

namespace settings_manager::service {

/// The path of a request's text.
/// @throws nvl::Error `InvalidArgument` for a bad text, or one that is longer than allowed when it
///         is written in full
[[nodiscard]] nvl::Path ReadPath(std::string_view text);

}  // namespace settings_manager::service
