#include "gated_observer.h"

#include <component/plk/result_codes.h>

namespace tvoctl {

int GatedObserver::OnSettingsUpdate(const nvl::Path& path, unsigned char kinds)
{
    std::unique_lock lock(m_mutex);
    m_turned.wait(lock, [this] { return m_gate != Gate::Closed; });
    const bool isOpen = m_gate == Gate::Open;
    lock.unlock();
    if (isOpen)
    {
        m_handler(path, kinds);
    }
    return plk::codes::Ok;
}

void GatedObserver::Open()
{
    Turn(Gate::Open);
}

void GatedObserver::Discard()
{
    Turn(Gate::Discarding);
}

void GatedObserver::Turn(Gate gate)
{
    const std::lock_guard lock(m_mutex);
    m_gate = gate;
    m_turned.notify_all();
}

}  // namespace tvoctl
