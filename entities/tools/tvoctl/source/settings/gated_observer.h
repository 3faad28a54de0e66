#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>

#include <component/settings_manager/i_settings_manager.h>

namespace tvoctl {

/// Holds updates back until it is known whether they are wanted.
class GatedObserver final : public settings_manager::ISettingsUpdateObserver
{
public:
    /// Called on the callback thread. Must not throw.
    using Handler = std::function<void(const nvl::Path& path, unsigned char kinds)>;

    explicit GatedObserver(Handler handler) : m_handler(std::move(handler)) {}

    int OnSettingsUpdate(const nvl::Path& path, unsigned char kinds) override;

    /// Hands on what is held back and what comes.
    void Open();

    /// Drops what is held back and what comes.
    void Discard();

private:
    enum class Gate
    {
        Closed,
        Open,
        Discarding,
    };

    void Turn(Gate gate);

    const Handler m_handler;
    std::mutex m_mutex;
    std::condition_variable m_turned;
    Gate m_gate = Gate::Closed;
};

}  // namespace tvoctl
