#include "presenters/clock_presenter.h"

#include <chrono>
#include <utility>

namespace taskbar_preview {

using namespace std::chrono;

ClockPresenter::ClockPresenter(::timer::ITimerFactory& timers,
                               std::string language,
                               std::ostream& out)
    : m_timer(timers.CreateTimer()), m_language(std::move(language)), m_out(out)
{
    m_timer->SetInterval(1s);
    m_timer->SetCallback([this] { Tell(); });
}

void ClockPresenter::OnShow()
{
    if (View() != nullptr)
        View()->SetSystemLanguage(m_language);
    Tell();
    m_timer->Start();
}

void ClockPresenter::OnHide()
{
    m_timer->Stop();
}

void ClockPresenter::OnControlActivated()
{
    m_out << "would open the calendar" << std::endl;
}

void ClockPresenter::Tell() const
{
    const auto now = system_clock::now().time_since_epoch();
    if (View() != nullptr)
        View()->SetDateTime({duration_cast<microseconds>(now).count()});
}

}  // namespace taskbar_preview
