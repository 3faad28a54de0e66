#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>

#include <component/logger/tracer.h>
#include <component/settings_manager/tvo_ipc/config.h>

#include "channel.h"
#include "subscription_table.h"

namespace settings_manager::ipc {

/// The connections over which updates are ordered and fetched.
struct CallbackChannels
{
    /// @throws zin::CheckFailedException
    explicit CallbackChannels(const SettingsManagerCmConfig& config);
    explicit CallbackChannels(const SettingsManagerConfig& config);

    Channel reg;
    Channel cbk;
    const char* name;  ///< of the callback channel, for the service
};

/// What the proxies of one connection share: a registration at the service, its subscriptions and
/// the thread that delivers its updates.
class CallbackContext final
{
public:
    /// Registers and starts the thread, for one user.
    /// @throws zin::CheckResultFailedException, zin::CheckFailedException, std::exception
    CallbackContext(CallbackChannels channels, trace::Tracer& tracer);
    ~CallbackContext();

    CallbackContext(const CallbackContext&) = delete;
    CallbackContext& operator=(const CallbackContext&) = delete;

    [[nodiscard]] std::uint64_t Cid() const
    {
        return m_cid;
    }
    [[nodiscard]] int UseCount() const
    {
        return m_useCount;
    }
    [[nodiscard]] std::size_t SidCount()
    {
        return m_table.Count();
    }

    void AddUser()
    {
        ++m_useCount;
    }

    /// @returns true for the last user: the registration has ended then, and so has the thread
    bool RemoveUser(trace::Tracer& tracer);

    int Subscribe(std::string_view path,
                  SubscriptionTable::Observer observer,
                  SubscriptionId& sid,
                  trace::Tracer& tracer);
    int Unsubscribe(SubscriptionId sid, trace::Tracer& tracer);

private:
    void Register(trace::Tracer& tracer);
    void Unregister(trace::Tracer& tracer);
    void StopThread();
    int CallSubscribe(std::string_view path, SubscriptionId& sid, trace::Tracer& tracer);

    std::atomic<int> m_useCount = 1;
    std::uint64_t m_cid = 0;
    CallbackChannels m_channels;
    SubscriptionTable m_table;
    std::thread m_thread;
};

}  // namespace settings_manager::ipc
