#include "presenters/layout_presenter.h"

#include <algorithm>
#include <array>
#include <utility>

namespace taskbar_preview {
namespace {

struct KnownLayout
{
    std::string_view layout;
    std::string_view locale;
};

constexpr std::array<KnownLayout, 6> KnownLayouts{{{"us", "en-US"},
                                                   {"ru", "ru-RU"},
                                                   {"latam", "es-MX"},
                                                   {"es", "es-MX"},
                                                   {"br", "pt-BR"},
                                                   {"pt", "pt-BR"}}};

/// @returns an empty text for a layout that has no short name
std::string_view LocaleOf(std::string_view layout)
{
    const auto known = std::ranges::find(KnownLayouts, layout, &KnownLayout::layout);
    return known == KnownLayouts.end() ? std::string_view() : known->locale;
}

}  // namespace

LayoutPresenter::LayoutPresenter(
    std::unique_ptr<language_control::IKeyboardLayoutController> controller,
    std::vector<std::string> locales,
    std::function<void(bool)> setShown)
    : m_controller(std::move(controller)),
      m_locales(std::move(locales)),
      m_setShown(std::move(setShown))
{
    if (m_controller != nullptr)
    {
        m_controller->RegisterLayoutChangedCallback([this](std::string_view layout)
                                                    { OnLayoutChanged(layout); });
    }
}

void LayoutPresenter::ChangeLocale(std::string locale)
{
    if (m_controller == nullptr)
        return;
    m_wanted = std::move(locale);
    m_origin = m_layout;
    m_controller->RequestLayoutChange();
}

void LayoutPresenter::OnShow()
{
    if (View() != nullptr)
        View()->OnLocalesChanged(m_locales);
    // Before it has named one, the compositor offers no control, or will name one unasked.
    if (!m_layout.empty())
        m_controller->QueryCurrentLayout();
}

void LayoutPresenter::OnLayoutChanged(std::string_view layout)
{
    m_layout = layout;
    const auto locale = LocaleOf(layout);
    if (View() != nullptr && !locale.empty())
        View()->OnLocaleChanged(locale);
    m_setShown(!locale.empty());
    StepOn();
}

void LayoutPresenter::StepOn()
{
    if (m_wanted.empty())
        return;
    if (LocaleOf(m_layout) == m_wanted || m_layout == m_origin)
        m_wanted.clear();
    else
        m_controller->RequestLayoutChange();
}

}  // namespace taskbar_preview
