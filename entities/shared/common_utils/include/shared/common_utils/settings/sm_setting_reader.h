#pragma once

#include <functional>
#include <memory>
#include <utility>

#include <component/nvl/path.h>
#include <component/plk/exceptions.h>
#include <component/settings_manager/i_settings_manager.h>
#include <component/settings_manager/sm_utils.h>
#include <shared/common_utils/settings/i_sm_setting_reader.h>
#include <shared/common_utils/settings/utils/collaborators.h>
#include <shared/common_utils/settings/utils/setting_callback.h>

namespace vdi::common_utils::settings {

/// Reads one setting from the settings service. T is one of the kinds of value that a setting may
/// hold; a setting of another kind reads as the default. Each reading is a call of the service.
///
/// Subscribed only while a callback is registered, which is called on the thread that all observers
/// of the service share. Destroying the reader waits for a running callback.
template <class T, class Enable = void>
class SmSettingReader final : public ISmSettingReader<T, Enable>
{
public:
    /// @param path          not empty
    /// @param defaultValue  the answer where the service has nothing usable
    /// @throws zin::CheckFailedException  the path is empty, or there is no manager or it cannot
    ///                                    read
    SmSettingReader(const std::shared_ptr<settings_manager::ISettingsManager>& settingsManager,
                    nvl::Path path,
                    T defaultValue)
        : m_path(utils::RequirePath(std::move(path))),
          m_defaultValue(std::move(defaultValue)),
          m_getter(utils::RequireGetter(settingsManager)),
          m_callback(m_path, utils::RequireUpdateSubscriber(settingsManager))
    {}

    [[nodiscard]] T ReadValue() const override
    {
        return settings_manager::GetSettingValue<T>(*m_getter, m_path, m_defaultValue);
    }

    [[nodiscard]] bool IsReadOnly() const override
    {
        settings_manager::Attributes attributes;
        ZIN_CHECK_RESULT(m_getter->GetAttribute(m_path, attributes), "");
        return attributes.isReadOnly;
    }

    void RegisterCallback(std::function<void()> callback) override
    {
        m_callback.RegisterCallback(std::move(callback));
    }

    void UnregisterCallback() override
    {
        m_callback.UnregisterCallback();
    }

private:
    const nvl::Path m_path;
    const T m_defaultValue;
    const std::shared_ptr<settings_manager::ISettingsGetter> m_getter;
    utils::SettingCallback m_callback;
};

}  // namespace vdi::common_utils::settings
