#include "watch_session.h"

#include <utility>

#include "difference.h"

namespace tvoctl {
namespace {

using settings_manager::Setting;

/// How often to look for a moment in which nobody writes.
constexpr int MaxTries = 16;

}  // namespace

WatchSession::WatchSession(settings_manager::ISettingsManager& manager) : m_store(manager) {}

WatchSession::~WatchSession()
{
    Unsubscribe();
}

std::optional<Setting> WatchSession::Subscribe(const nvl::Path& path,
                                               const GatedObserver::Handler& handler)
{
    for (int tries = 1;; ++tries)
    {
        const std::optional<Setting> before = m_store.Find(path);
        m_observer = std::make_shared<GatedObserver>(handler);
        m_sid = m_store.Subscribe(path, m_observer);
        std::optional<Setting> now = m_store.Find(path);
        // Nobody can tell of a change between the two whether it will be handed on too.
        if (tries == MaxTries || FindDifference(path, Pointer(before), Pointer(now)).empty())
        {
            return now;
        }
        Unsubscribe();
    }
}

void WatchSession::OpenGate()
{
    m_observer->Open();
}

void WatchSession::Unsubscribe() noexcept
{
    if (m_sid != 0)
    {
        m_observer->Discard();
        m_store.Unsubscribe(std::exchange(m_sid, 0));
    }
}

}  // namespace tvoctl
