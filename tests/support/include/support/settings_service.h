#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include <support/process.h>

namespace support {

/// The settings service of a terminal, in memory, with the language that the terminal speaks.
class SettingsService final
{
public:
    /// @param runtimeFolder  the terminal's rendezvous
    /// @param language  as in the setting, for instance "en-US"
    /// @throws std::runtime_error, with what was written, if it does not become ready
    SettingsService(const std::filesystem::path& runtimeFolder, const std::string& language);

    /// @throws std::runtime_error, with what tvoctl wrote, if the service refuses
    void SetLanguage(const std::string& language);

    [[nodiscard]] Process& Service();

private:
    std::filesystem::path m_runtimeFolder;
    Process m_service;
};

}  // namespace support
