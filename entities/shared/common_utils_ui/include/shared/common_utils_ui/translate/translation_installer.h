#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vdi::common_utils_ui::translate {

/// Installs compiled translations into the Qt application and makes the language the default
/// QLocale. Supported languages are "en-US", "ru-RU", "es-MX" and "pt-BR", spelt just so; any other
/// text counts as "ru-RU". What was installed stays until the installer dies; the newest wins.
/// For the UI thread, after the application object exists. Nothing throws.
class ITranslationInstaller
{
public:
    virtual ~ITranslationInstaller() = default;

    /// Installs in order and stops at the first failure, keeping what is installed by then.
    /// @returns 0, or a negative result code; the default QLocale is changed even then
    virtual int Install(std::vector<std::string> resources, std::string_view locale) = 0;

    /// @param resource  the start of the file's name: "cert_approver" for cert_approver_ru.qm
    /// @returns 0, or a negative result code; the default QLocale is changed even then
    virtual int Install(std::string_view resource, std::string_view locale) = 0;
};

/// @param directory  where the .qm files are
std::unique_ptr<ITranslationInstaller> CreateTranslationInstaller(std::string_view directory);

/// For the files in the resource folder ":/translations".
std::unique_ptr<ITranslationInstaller> CreateTranslationInstaller();

}  // namespace vdi::common_utils_ui::translate
