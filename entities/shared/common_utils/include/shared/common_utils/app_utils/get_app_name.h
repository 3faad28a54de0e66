#pragma once

#include <string_view>

namespace common_utils::app_utils {

/// The name under which the process was started: argv[0] whole, path included. The view is good as
/// long as argv is.
/// @throws zin::CheckFailedException  there is no argv[0], or it is empty
std::string_view GetAppName(int argc, const char** argv);

/// The same, but a failure is logged and answered with `fallback`.
std::string_view GetAppNameOrDefault(int argc, const char** argv, std::string_view fallback);

}  // namespace common_utils::app_utils
