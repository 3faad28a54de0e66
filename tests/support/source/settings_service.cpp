#include <stdexcept>

#include <support/settings_service.h>

namespace support {

SettingsService::SettingsService(const std::filesystem::path& runtimeFolder,
                                 const std::string& language)
    : m_runtimeFolder(runtimeFolder),
      m_service({TVO_SETTINGS_MANAGER, {"--memory"}, {{"TVO_RUNTIME_DIR", runtimeFolder}}, {}})
{
    if (!m_service.WaitForText("is ready"))
    {
        throw std::runtime_error("The settings service is not ready:\n" + m_service.Errors());
    }
    SetLanguage(language);
}

void SettingsService::SetLanguage(const std::string& language)
{
    Process set({TVO_TVOCTL,
                 {"settings", "set", "--create", "profiles/locale/language", language},
                 {{"TVO_RUNTIME_DIR", m_runtimeFolder}},
                 {}});
    if (set.ExitStatus() != 0)
    {
        throw std::runtime_error("The language cannot be set:\n" + set.Errors());
    }
}

Process& SettingsService::Service()
{
    return m_service;
}

}  // namespace support
