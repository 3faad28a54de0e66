#pragma once

#include <utility>

#include <QLocale>
#include <QTranslator>

#include <shared/common_utils_ui/translate/translation_installer.h>

namespace vdi::common_utils_ui::translate {

class TranslationInstaller final : public ITranslationInstaller
{
public:
    explicit TranslationInstaller(std::string_view directory);
    ~TranslationInstaller() override;

    TranslationInstaller(const TranslationInstaller&) = delete;
    TranslationInstaller& operator=(const TranslationInstaller&) = delete;

    int Install(std::vector<std::string> resources, std::string_view locale) override;
    int Install(std::string_view resource, std::string_view locale) override;

private:
    /// @returns the locale and whether it is the default, taken for want of the requested one
    std::pair<QLocale, bool> GetLocale(std::string_view name) const;
    static void SetDefaultLocale(QLocale const& locale);
    int Install(std::string_view resource, QLocale const& locale);
    int Keep(std::unique_ptr<QTranslator> translator,
             std::string_view resource,
             QLocale const& locale);

    std::string m_directory;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};

}  // namespace vdi::common_utils_ui::translate
