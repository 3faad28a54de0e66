#pragma once

#include <utility>
#include <variant>

#include <component/logger/logger.h>
#include <component/plk/result_code_text.h>
#include <component/settings_manager/i_settings_manager.h>
#include <component/settings_manager/path_to_str.h>

namespace settings_manager {

/// Reads a setting that is expected to hold a value of the kind T, one of the alternatives of
/// `Setting::Variant`.
/// @returns the value, or `defaultValue` where the setting cannot be read or holds another kind; a
///          warning says which
template <class T>
[[nodiscard]] T GetSettingValue(const ISettingsGetter& getter,
                                const nvl::Path& path,
                                T defaultValue)
{
    Setting setting;
    if (const int result = getter.GetSetting(path, setting); result < 0)
    {
        TVO_LOG_WARNING("SMgr GetSettingValue: can not get '{}', result = {}",
                        path,
                        plk::zinx::ResultCodeText(result));
        return defaultValue;
    }
    if (auto* value = std::get_if<T>(&setting.value); value != nullptr)
    {
        return std::move(*value);
    }
    TVO_LOG_WARNING(
        "SMgr GetSettingValue: '{}' wrong type, index = {}", path, setting.value.index());
    return defaultValue;
}

}  // namespace settings_manager
