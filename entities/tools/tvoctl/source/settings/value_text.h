#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <component/settings_manager/setting.h>

namespace tvoctl {

/// The value of a setting as an argument gives it: JSON for a list or a map, otherwise as
/// `FormatScalar` writes it.
std::string FormatValue(const settings_manager::Setting& setting);

/// Reads what `FormatValue` writes. The setting itself is writable; its children may not be.
/// @throws Failure  BadUse
settings_manager::Setting ParseValue(std::size_t kind, std::string_view text);

}  // namespace tvoctl
