#pragma once

#include <memory>
#include <utility>
#include <variant>

#include <component/logger/logger.h>
#include <component/nvl/path.h>
#include <component/plk/result_code_text.h>
#include <component/plk/result_codes.h>
#include <component/settings_manager/i_settings_manager.h>
#include <component/settings_manager/path_to_str.h>
#include <shared/common_utils/settings/i_sm_setting_writer.h>
#include <shared/common_utils/settings/utils/collaborators.h>

namespace vdi::common_utils::settings {

/// Writes the value of one setting through the settings service and leaves its attributes alone. T
/// is one of the kinds of value that a setting may hold.
template <class T, class Enable = void>
class SmSettingValueWriter final : public ISmSettingWriter<T, Enable>
{
public:
    /// @param path  not empty
    /// @throws zin::CheckFailedException  the path is empty, or there is no manager or it cannot
    ///                                    write
    SmSettingValueWriter(const std::shared_ptr<settings_manager::ISettingsManager>& settingsManager,
                         nvl::Path path)
        : m_path(utils::RequirePath(std::move(path))),
          m_setter(utils::RequireValueSetter(settingsManager))
    {}

    int WriteValue(const T& value) override
    {
        const settings_manager::Setting setting{
            .value = settings_manager::Setting::Variant(std::in_place_type<T>, value)};
        if (const int result = m_setter->SetValue(m_path, settings_manager::ToValue(setting));
            result < 0)
        {
            TVO_LOG_ERROR("Failed to set setting value to path {}, result = {}",
                          m_path,
                          plk::zinx::ResultCodeText(result));
            return result;
        }
        return plk::codes::Ok;
    }

private:
    const nvl::Path m_path;
    const std::shared_ptr<settings_manager::ISettingsValueSetter> m_setter;
};

}  // namespace vdi::common_utils::settings
