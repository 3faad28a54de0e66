#pragma once

#include <functional>
#include <string>

#include <shared/common_utils/settings/i_sm_setting_reader.h>

namespace vdi::common_utils::settings {

/// The system's language until the settings service is there: the environment variable
/// TVO_LANGUAGE ("pt-BR"), or the default where that is not set or empty.
class LanguageReader final : public ISmSettingReader<std::string>
{
public:
    explicit LanguageReader(std::string defaultValue);

    [[nodiscard]] std::string ReadValue() const override;
    [[nodiscard]] bool IsReadOnly() const override;

    /// The environment of a process does not change: the callback is never called.
    void RegisterCallback(std::function<void()> callback) override;
    void UnregisterCallback() override;

private:
    std::string m_defaultValue;
};

}  // namespace vdi::common_utils::settings
