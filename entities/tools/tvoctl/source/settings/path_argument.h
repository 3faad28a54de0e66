#pragma once

#include <string>
#include <string_view>

#include <component/nvl/path.h>
#include <component/settings_manager/setting.h>

namespace tvoctl {

/// The path that an argument names, with or without a slash at its end; "/" is the root.
/// @throws Failure  BadUse
nvl::Path ParsePath(std::string_view text);

/// A path as an argument names it, without a slash at its end. There is always a text.
std::string PathText(const nvl::Path& path);

/// @throws Failure  BadUse when a node of the tree has a name or an index that no path can have
void CheckPaths(const nvl::Path& path, const settings_manager::Setting& tree);

}  // namespace tvoctl
