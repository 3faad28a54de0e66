#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include <component/settings_manager/i_settings_manager.h>
#include <component/settings_manager/tvo_ipc/config.h>

#include "callback_context.h"

namespace settings_manager::ipc {

/// The process's subscriptions at all settings services. Every operation writes its lines with the
/// prefix of the proxy that it is done for, and may be called from any thread but the callback
/// threads.
class SettingsManagerCallback final
{
public:
    using Context = CallbackContext;
    using Iterator = std::map<std::string, Context>::iterator;

    /// Joins the context of the connection, or makes it; others wait meanwhile.
    /// @returns what the other operations take; to be given back by `UnregCallback`
    /// @throws zin::Exception, std::exception
    Iterator RegCallback(std::string_view prefix, const SettingsManagerCmConfig& config);
    Iterator RegCallback(std::string_view prefix, const SettingsManagerConfig& config);

    /// For the last user of the context, waits for an observer that is running.
    void UnregCallback(std::string_view prefix, Iterator context) noexcept;

    int Subscribe(std::string_view prefix,
                  Iterator context,
                  const nvl::Path& path,
                  std::shared_ptr<ISettingsUpdateObserver> observer,
                  SubscriptionId& sid);
    int Unsubscribe(std::string_view prefix, Iterator context, SubscriptionId sid);

private:
    template <class Config>
    Iterator AddContext(const std::string& key, const Config& config, trace::Tracer& tracer);

    std::mutex m_mutex;
    std::map<std::string, Context> m_contexts;
};

namespace aux::impl {

/// @returns the one object of the process, made on first use and destroyed at exit
SettingsManagerCallback& ProxyLibStaticInit();

}  // namespace aux::impl
}  // namespace settings_manager::ipc
