#pragma once

#include <optional>
#include <span>

#include <component/nvl/path.h>
#include <component/settings_manager/setting.h>

namespace tvoctl {

/// The way from a setting down to another, by names only.
using Levels = std::span<const nvl::Level>;

/// @returns the setting at a place of a tree, null when there is none
const settings_manager::Setting* FindPlace(const settings_manager::Setting& tree, Levels way);

/// Puts a setting at a place of a tree, or removes what is there. Where there is no parent, nothing
/// happens.
void PutPlace(std::optional<settings_manager::Setting>& tree,
              Levels way,
              std::optional<settings_manager::Setting> now);

}  // namespace tvoctl
