#pragma once

#include <memory>
#include <optional>

#include "gated_observer.h"
#include "store.h"

namespace tvoctl {

/// One connection to a store with a subscription on it. At its end the handler runs no more.
class WatchSession
{
public:
    explicit WatchSession(settings_manager::ISettingsManager& manager);
    ~WatchSession();
    WatchSession(const WatchSession&) = delete;
    WatchSession& operator=(const WatchSession&) = delete;

    /// Subscribes to a setting. What changes behind the answer is handed on once the gate is open.
    /// What changes before or while the setting is read is in the answer and not handed on, unless
    /// others never stop writing.
    /// @throws Failure
    std::optional<settings_manager::Setting> Subscribe(const nvl::Path& path,
                                                       const GatedObserver::Handler& handler);

    void OpenGate();

    [[nodiscard]] const Store& GetStore() const
    {
        return m_store;
    }

private:
    void Unsubscribe() noexcept;

    Store m_store;
    std::shared_ptr<GatedObserver> m_observer;
    settings_manager::SubscriptionId m_sid = 0;
};

}  // namespace tvoctl
