#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <component/settings_manager/setting.h>

namespace tvoctl {

/// The text of a value without children: a string as it is, a blob in hexadecimal digits, numbers
/// in decimal ones (a double in as few as give it back), "none", "true", "false", "inf", "-inf",
/// "nan", and "nan:" with sixteen hexadecimal digits for a NaN of other bits.
/// @throws std::bad_variant_access  for a list or a map
std::string FormatScalar(const settings_manager::Setting::Variant& value);

/// Reads what `FormatScalar` writes, to the bit.
/// @throws Failure  BadUse
settings_manager::Setting::Variant ParseScalar(std::size_t kind, std::string_view text);

}  // namespace tvoctl
