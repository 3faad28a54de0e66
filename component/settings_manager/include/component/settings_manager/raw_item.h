#pragma once

#include <string>
#include <vector>

#include <component/nvl/path.h>
#include <component/settings_manager/raw.h>
#include <component/settings_manager/setting.h>

namespace settings_manager::impl {

/// One node of a tree, without its children, as three blocks.
struct RawItem
{
    RawItem() = default;

    /// @throws nvl::Error `InvalidState` for a setting that holds nothing at all,
    ///         `InvalidArgument` for a path that has no text
    RawItem(const nvl::Path& nodePath, const Setting& setting);

    /// Replaces the value of a setting, see `Raw::ToValue`.
    void DeserializeValue(Setting& setting) const
    {
        Raw::ToValue(value, setting.value);
    }

    std::vector<unsigned char> attrib;
    std::vector<unsigned char> value;
    std::string path;  ///< the whole path, a separator behind every level
};

}  // namespace settings_manager::impl
