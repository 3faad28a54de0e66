#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <component/settings_manager/setting.h>

namespace tvoctl {

/// The name of a kind of value: "none", "list", "map", "bool", "int8" …
std::string_view KindName(std::size_t kind);

inline std::string_view KindName(const settings_manager::Setting& setting)
{
    return KindName(setting.value.index());
}

/// All names, for a help text.
std::string KindNames();

/// @throws Failure  BadUse for a name that no kind has
std::size_t KindFromName(std::string_view name);

}  // namespace tvoctl
