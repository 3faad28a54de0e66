#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <component/nvl/path.h>
#include <component/settings_manager/setting.h>

#include "../environment.h"
#include "difference.h"

namespace tvoctl {

/// The name of a kind of change: "created", "deleted", "value", "attributes" or
/// "value,attributes".
std::string ChangeName(unsigned char kinds);

/// Prints one line about a setting: what it is about, the path, and the setting if there is one.
/// @param subject  what the path's line is about
void PrintSetting(Environment& environment,
                  std::string_view subject,
                  const nvl::Path& path,
                  const settings_manager::Setting* setting);

void PrintChanges(Environment& environment, const std::vector<Change>& changes);

/// Says in JSON that a command was done; people are told by silence.
void PrintDone(Environment& environment, std::string_view command, const nvl::Path& path);

}  // namespace tvoctl
