#include "translate/translation_installer.h"

#include <algorithm>
#include <array>
#include <exception>

#include <QCoreApplication>

#include <component/logger/logger.h>
#include <component/plk/result_codes.h>
#include <shared/common_utils_ui/log/qt_formatters.h>

namespace vdi::common_utils_ui::translate {
namespace {

constexpr std::string_view DefaultDirectory = ":/translations";
constexpr std::string_view DefaultLocale = "ru-RU";
constexpr std::array<std::string_view, 4> SupportedLocales{"en-US", "ru-RU", "es-MX", "pt-BR"};

QString ToQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

TranslationInstaller::TranslationInstaller(std::string_view directory) : m_directory(directory) {}

TranslationInstaller::~TranslationInstaller()
{
    for (const auto& translator : m_translators)
        QCoreApplication::removeTranslator(translator.get());
}

int TranslationInstaller::Install(std::vector<std::string> resources, std::string_view locale)
try
{
    if (resources.empty())
    {
        TVO_LOG_ERROR("Resources vector is empty!");
        return plk::codes::NotSupported;
    }
    const auto found = GetLocale(locale).first;
    SetDefaultLocale(found);
    for (const auto& resource : resources)
        if (const int result = Install(resource, found); result < 0)
            return result;
    return plk::codes::Ok;
}
catch (...)
{
    return plk::codes::UnknownException;
}

int TranslationInstaller::Install(std::string_view resource, std::string_view locale)
try
{
    const auto found = GetLocale(locale).first;
    SetDefaultLocale(found);
    return Install(resource, found);
}
catch (...)
{
    return plk::codes::UnknownException;
}

std::pair<QLocale, bool> TranslationInstaller::GetLocale(std::string_view name) const
{
    if (std::ranges::find(SupportedLocales, name) != SupportedLocales.end())
    {
        const QLocale locale{ToQString(name)};
        TVO_LOG_TRACE("Found locale <{}>.", locale.name());
        return {locale, false};
    }
    const QLocale locale{ToQString(DefaultLocale)};
    TVO_LOG_WARNING("Unable to determine locale <{}>. Default is <{}>", name, locale.name());
    return {locale, true};
}

void TranslationInstaller::SetDefaultLocale(QLocale const& locale)
{
    QLocale::setDefault(locale);
    TVO_LOG_INFO("Default locale was set to <{}>", locale.name());
}

int TranslationInstaller::Install(std::string_view resource, QLocale const& locale)
{
    if (resource.empty())
    {
        TVO_LOG_ERROR("Resource name is empty!");
        return plk::codes::NotSupported;
    }
    auto translator = std::make_unique<QTranslator>();
    // The suffix is null and not empty: only then does Qt append ".qm".
    if (!translator->load(locale, ToQString(resource), "_", ToQString(m_directory), QString()))
    {
        TVO_LOG_ERROR(
            "Translation file <{}> for <{}> language wasn't loaded", resource, locale.name());
        return plk::codes::UnspecifiedError;
    }
    if (!QCoreApplication::installTranslator(translator.get()))
    {
        TVO_LOG_ERROR(
            "Failed to complete the installation of the <{}> language translator for the resource "
            "<{}>",
            locale.name(),
            resource);
        return plk::codes::UnspecifiedError;
    }
    return Keep(std::move(translator), resource, locale);
}

int TranslationInstaller::Keep(std::unique_ptr<QTranslator> translator,
                               std::string_view resource,
                               QLocale const& locale)
try
{
    m_translators.push_back(std::move(translator));
    TVO_LOG_INFO(
        "Installing the <{}> language translator for the resource <{}> completed successfully!",
        locale.name(),
        resource);
    return plk::codes::Ok;
}
catch (const std::exception& error)
{
    TVO_LOG_ERROR("The translator (language: <{}>, resource: <{}>) throws an exception: <{}>",
                  locale.name(),
                  resource,
                  error.what());
    return plk::codes::UnspecifiedError;
}
catch (...)
{
    TVO_LOG_ERROR(
        "The translator (language: <{}>, resource: <{}>) throws an unknown type of exception",
        locale.name(),
        resource);
    return plk::codes::UnspecifiedError;
}

std::unique_ptr<ITranslationInstaller> CreateTranslationInstaller(std::string_view directory)
{
    return std::make_unique<TranslationInstaller>(directory);
}

std::unique_ptr<ITranslationInstaller> CreateTranslationInstaller()
{
    return CreateTranslationInstaller(DefaultDirectory);
}

}  // namespace vdi::common_utils_ui::translate
