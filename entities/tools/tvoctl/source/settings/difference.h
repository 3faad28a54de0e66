#pragma once

#include <optional>
#include <vector>

#include <component/nvl/path.h>
#include <component/settings_manager/setting.h>

namespace tvoctl {

/// What has become of one setting.
struct Change
{
    nvl::Path path;
    unsigned char kinds = 0;  ///< of `settings_manager::update`
    /// What is there now, in the tree that was compared; null for nothing, and where it is not
    /// told.
    const settings_manager::Setting* setting = nullptr;
};

/// What leads from one tree to another, each compared to the bit. A subtree that came or went is
/// one change. A null tree stands for nothing.
/// @returns changes that refer to `after`
std::vector<Change> FindDifference(const nvl::Path& path,
                                   const settings_manager::Setting* before,
                                   const settings_manager::Setting* after);

/// The address of what an optional holds, null for nothing.
template <class T>
const T* Pointer(const std::optional<T>& value)
{
    return value ? &*value : nullptr;
}

}  // namespace tvoctl
