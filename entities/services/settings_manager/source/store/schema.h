#pragma once

#include <string>

#include "database.h"

namespace settings_manager::service {

/// Opens the database of settings of a file and locks it, or makes one of a missing or empty file.
/// @throws std::runtime_error with one line that says why the file is of no use; it is left as it
///         is then
[[nodiscard]] Database OpenSettings(const std::string& file);

}  // namespace settings_manager::service
