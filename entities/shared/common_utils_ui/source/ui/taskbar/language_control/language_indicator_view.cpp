#include <algorithm>
#include <iterator>
#include <utility>

#include <QQmlContext>
#include <QStringListModel>
#include <QVariant>

#include <component/logger/logger.h>
#include <shared/common_utils_ui/log/qt_formatters.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/language_indicator_view.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/layout_translator.h>

namespace common_utils_ui::taskbar::ui::controls::language_control {

LanguageIndicatorView::LanguageIndicatorView(std::shared_ptr<ILanguageIndicatorPresenter> presenter,
                                             QQmlContext* context,
                                             QObject* parent)
    : TaskbarView(std::move(presenter), parent, Initially::Invisible)
{
    CheckCollaborators(
        context, "LanguageIndicatorPresenter is not initialized!", __FILE__, __LINE__);
    m_model = std::make_unique<QStringListModel>(GetLayoutAbbrevs());
    setObjectName(QStringLiteral("LayoutControl"));
    Publish(*context, "layoutControl");
    context->setContextProperty(QStringLiteral("localeModel"), QVariant::fromValue(m_model.get()));
    m_presenter->SetView(this);
}

LanguageIndicatorView::~LanguageIndicatorView()
{
    m_presenter->SetView(nullptr);
}

void LanguageIndicatorView::OnLocaleChanged(std::string_view locale)
{
    if (Change(m_keyboardLayout, GetLayoutAbbrev(locale)))
    {
        emit KeyboardLayoutChanged(m_keyboardLayout);
    }
}

void LanguageIndicatorView::OnLocalesChanged(const std::vector<std::string>& locales)
{
    QList<QString> layouts;
    std::ranges::transform(locales, std::back_inserter(layouts), GetLayoutAbbrev);
    m_layouts = std::move(layouts);
    m_model->setStringList(m_layouts);
}

void LanguageIndicatorView::OnShow()
{
    m_presenter->OnShow();
}

void LanguageIndicatorView::OnHide() {}

QString LanguageIndicatorView::KeyboardLayout() const
{
    return m_keyboardLayout;
}

void LanguageIndicatorView::ChangeLayout(QString layout)
{
    if (layout == m_keyboardLayout)
    {
        return;
    }
    if (!m_layouts.contains(layout))
    {
        TVO_LOG_ERROR("Keyboard layout display name {} is missing in list", layout);
        return;
    }
    const auto& mapping = GetLanguageToLayoutAbbrevMapping();
    const auto entry =
        std::ranges::find(mapping, layout, [](const auto& known) { return known.second; });
    if (entry == mapping.end())
    {
        TVO_LOG_ERROR("Cannot match locale for keyboard layout display name {}", layout);
        return;
    }
    m_presenter->ChangeLocale(std::string(entry->first));
}

}  // namespace common_utils_ui::taskbar::ui::controls::language_control
