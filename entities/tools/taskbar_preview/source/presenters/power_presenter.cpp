#include "presenters/power_presenter.h"

namespace taskbar_preview {

PowerPresenter::PowerPresenter(bool isUpdateReady, std::ostream& out)
    : m_isUpdateReady(isUpdateReady), m_out(out)
{}

void PowerPresenter::SetView(power_control::IPowerControlView* view)
{
    Presenter::SetView(view);
    if (view != nullptr)
        view->SetUpdateAvailable(m_isUpdateReady);
}

void PowerPresenter::Shutdown()
{
    m_out << "would shut the terminal down" << std::endl;
}

void PowerPresenter::Reboot()
{
    m_out << "would restart the terminal" << std::endl;
}

}  // namespace taskbar_preview
