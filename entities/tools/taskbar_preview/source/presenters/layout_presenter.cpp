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

/// After so many a layout counts as missing. A keyboard of xkb has up to four layouts, and twelve
/// steps are whole rounds of any such number: a search in vain ends where it began.
constexpr int MostSteps = 12;

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
    std::function<void(bool)> setShown,
    std::chrono::milliseconds patience)
    : m_controller(std::move(controller)),
      m_locales(std::move(locales)),
      m_setShown(std::move(setShown)),
      m_patience(patience)
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
    const bool isOnTheWay = IsOnTheWay();
    m_wanted = std::move(locale);
    m_stepsLeft = MostSteps;
    // Otherwise the answer that is still to come leads on.
    if (!isOnTheWay)
        Step();
}

void LayoutPresenter::OnShow()
{
    if (View() != nullptr)
        View()->OnLocalesChanged(m_locales);
    // Before it has named one, the compositor offers no control, or will name one unasked.
    if (m_isTold)
        m_controller->QueryCurrentLayout();
}

void LayoutPresenter::OnLayoutChanged(std::string_view layout)
{
    m_isTold = true;
    const auto locale = LocaleOf(layout);
    if (View() != nullptr && !locale.empty())
        View()->OnLocaleChanged(locale);
    m_setShown(!locale.empty());
    if (IsOnTheWay() && locale != m_wanted && m_stepsLeft > 0)
        Step();
    else
        m_wanted.clear();
}

bool LayoutPresenter::IsOnTheWay() const
{
    return !m_wanted.empty() && std::chrono::steady_clock::now() < m_answerDue;
}

void LayoutPresenter::Step()
{
    --m_stepsLeft;
    m_answerDue = std::chrono::steady_clock::now() + m_patience;
    m_controller->RequestLayoutChange();
}

}  // namespace taskbar_preview
