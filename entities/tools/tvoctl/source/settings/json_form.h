#pragma once

#include <nlohmann/json.hpp>

#include <component/settings_manager/setting.h>

namespace tvoctl {

/// The JSON form of a tree of settings, from which it comes back to the bit.
///
/// - A writable none, bool, int32, list or map is plain JSON (none is null, a number without a type
///   is an int32), and so is a writable string of valid UTF-8.
/// - All else is an object: {"$type": "uint64", "value": "18446744073709551615"}, with
///   "readOnly": true where that is so. Numbers of 64 bits, "inf", "-inf" and NaNs are texts as in
///   `FormatScalar`, since many readers of JSON would change them as numbers. A blob and a string
///   that is no UTF-8 have "hex" in place of "value".
/// - In the names of a map's members, a "$" at the beginning, each "%" and each byte that is no
///   UTF-8 stand as "%" and two hexadecimal digits.
nlohmann::json ToJson(const settings_manager::Setting& setting);

/// @throws Failure  BadUse, with the place
settings_manager::Setting FromJson(const nlohmann::json& json);

}  // namespace tvoctl
