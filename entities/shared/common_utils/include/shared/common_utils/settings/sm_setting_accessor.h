#pragma once

#include <functional>
#include <memory>
#include <utility>

#include <component/nvl/path.h>
#include <component/settings_manager/i_settings_manager.h>
#include <shared/common_utils/settings/i_sm_setting_accessor.h>
#include <shared/common_utils/settings/sm_setting_reader.h>
#include <shared/common_utils/settings/sm_setting_value_writer.h>

namespace vdi::common_utils::settings {

/// Reads and writes one setting: an `SmSettingReader` and a writer on the same path.
/// @tparam Writer  made with the settings manager and the path
template <class T, template <class, class> class Writer = SmSettingValueWriter, class Enable = void>
class SmSettingAccessor final : public ISmSettingAccessor<T, Enable>
{
public:
    /// @throws zin::CheckFailedException  what the reader's or the writer's constructor throws
    SmSettingAccessor(const std::shared_ptr<settings_manager::ISettingsManager>& settingsManager,
                      nvl::Path path,
                      T defaultValue)
        : m_reader(settingsManager, path, std::move(defaultValue)),
          m_writer(settingsManager, std::move(path))
    {}

    [[nodiscard]] T ReadValue() const override
    {
        return m_reader.ReadValue();
    }

    [[nodiscard]] bool IsReadOnly() const override
    {
        return m_reader.IsReadOnly();
    }

    void RegisterCallback(std::function<void()> callback) override
    {
        m_reader.RegisterCallback(std::move(callback));
    }

    void UnregisterCallback() override
    {
        m_reader.UnregisterCallback();
    }

    int WriteValue(const T& value) override
    {
        return m_writer.WriteValue(value);
    }

private:
    SmSettingReader<T, Enable> m_reader;
    Writer<T, Enable> m_writer;
};

}  // namespace vdi::common_utils::settings
