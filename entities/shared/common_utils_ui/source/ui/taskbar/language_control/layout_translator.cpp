#include <algorithm>
#include <iterator>

#include <QCoreApplication>

#include <component/logger/logger.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/layout_translator.h>

namespace common_utils_ui::taskbar::ui::controls::language_control {

namespace {

constexpr std::string_view DefaultLocale = "ru-RU";

QString DefaultAbbrev()
{
    return QCoreApplication::translate("language_control", "$ru-RU$");
}

}  // namespace

const std::array<std::pair<std::string_view, QString>, 4>& GetLanguageToLayoutAbbrevMapping()
{
    static const std::array<std::pair<std::string_view, QString>, 4> mapping{{
        {"en-US", QCoreApplication::translate("language_control", "$en-US$")},
        {DefaultLocale, DefaultAbbrev()},
        {"es-MX", QCoreApplication::translate("language_control", "$es-MX$")},
        {"pt-BR", QCoreApplication::translate("language_control", "$pt-BR$")},
    }};
    return mapping;
}

const QList<QString>& GetLayoutAbbrevs()
{
    static const QList<QString> abbrevs = []
    {
        QList<QString> names;
        std::ranges::transform(GetLanguageToLayoutAbbrevMapping(),
                               std::back_inserter(names),
                               [](const auto& entry) { return entry.second; });
        return names;
    }();
    return abbrevs;
}

QString GetLayoutAbbrev(std::string_view locale)
{
    const auto& mapping = GetLanguageToLayoutAbbrevMapping();
    const auto entry =
        std::ranges::find(mapping, locale, [](const auto& known) { return known.first; });
    if (entry == mapping.end())
    {
        TVO_LOG_ERROR(
            "{} : No lang id for locale {}; default '{}'", __func__, locale, DefaultLocale);
        return DefaultAbbrev();
    }
    return entry->second;
}

}  // namespace common_utils_ui::taskbar::ui::controls::language_control
