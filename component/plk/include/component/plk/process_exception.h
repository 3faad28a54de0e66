#pragma once

#include <string>
#include <utility>

namespace plk::utils {

/// Turns the exception in flight into a result code and a text. To be called inside a handler. An
/// exception of its own, for want of memory, ends the process.
std::pair<int, std::string> ProcessException() noexcept;

}  // namespace plk::utils

namespace common::utils {

/// The same under the name that the shared code knows.
std::pair<int, std::string> ProcessException() noexcept;

}  // namespace common::utils
