#include "presenters/network_presenter.h"

#include <system_error>
#include <utility>

#include <component/logger/logger.h>

namespace taskbar_preview {
namespace {

NetworkStatus ReadStatus()
try
{
    return StatusOf(ReadLinks());
}
catch (const std::system_error& error)
{
    TVO_LOG_WARNING("The links can not be read: {}", error.what());
    return NetworkStatus::UnclassifiedError;
}

}  // namespace

NetworkPresenter::NetworkPresenter(std::function<void()> onChange, std::ostream& out)
    : m_onChange(std::move(onChange)), m_out(out)
{}

void NetworkPresenter::OnShow()
try
{
    // The watch comes first: no change falls between it and the reading.
    m_watch = std::make_unique<NetworkWatch>([this] { Tell(); });
    Tell();
}
catch (const std::system_error& error)
{
    TVO_LOG_WARNING("The links can not be watched: {}", error.what());
    Tell();
}

void NetworkPresenter::OnHide()
{
    m_watch.reset();
}

void NetworkPresenter::OnControlActivated()
{
    m_out << "would open the settings of the network" << std::endl;
}

void NetworkPresenter::Tell()
{
    const auto status = ReadStatus();
    const auto last = std::exchange(m_status, status);
    if (View() != nullptr)
        View()->SetNetworkIndicatorStatus(status);
    if (last.has_value() && last != status)
        m_onChange();
}

}  // namespace taskbar_preview
