#include "settings_manager_callback.h"

#include <utility>

#include <component/logger/logger.h>
#include <component/plk/result_codes.h>
#include <component/settings_manager/tvo_ipc/service_names.h>

#include "call.h"
#include "operation.h"

namespace settings_manager::ipc {

using tvo::logger::LogLevel;

template <class Config>
SettingsManagerCallback::Iterator SettingsManagerCallback::AddContext(const std::string& key,
                                                                      const Config& config,
                                                                      trace::Tracer& tracer)
{
    const std::lock_guard lock(m_mutex);
    auto context = m_contexts.find(key);
    if (context != m_contexts.end())
    {
        context->second.AddUser();
    }
    else
    {
        context = m_contexts.try_emplace(key, CallbackChannels(config), tracer).first;
    }
    tracer.PutResults("@{:16X}, use count = {}", context->second.Cid(), context->second.UseCount());
    return context;
}

SettingsManagerCallback::Iterator SettingsManagerCallback::RegCallback(
    std::string_view prefix,
    const SettingsManagerCmConfig& config)
{
    trace::Tracer tracer(prefix, "RegCallback", LogLevel::Debug);
    tracer.PutArguments("{}[{},{}] ({} ms)",
                        config.serviceName,
                        service_names::IsmReg,
                        service_names::IsmCbk,
                        PrintableTimeout(config.connectTimeoutMs));
    tracer.LogImpl(LogLevel::Debug, "");
    return AddContext(std::string(service_names::CmCallback) + config.serviceName, config, tracer);
}

SettingsManagerCallback::Iterator SettingsManagerCallback::RegCallback(
    std::string_view prefix,
    const SettingsManagerConfig& config)
{
    trace::Tracer tracer(prefix, "RegCallback", LogLevel::Debug);
    tracer.PutArguments("{}<{},{}> + {}<{}>",
                        config.serviceConnection,
                        config.ismEndpoint,
                        config.ismRegEndpoint,
                        config.callbackConnection,
                        config.ismCbkEndpoint);
    tracer.LogImpl(LogLevel::Debug, "");
    return AddContext(config.callbackConnection, config, tracer);
}

void SettingsManagerCallback::UnregCallback(std::string_view prefix, Iterator context) noexcept
{
    // Of a last user's context; outlives the lock, since its end closes connections.
    std::map<std::string, Context>::node_type node;
    trace::Tracer tracer(prefix, "UnregCallback", LogLevel::Debug);
    Context& shared = context->second;
    tracer.PutArguments("@{:16X}", shared.Cid());
    tracer.LogImpl(LogLevel::Debug, "");
    std::unique_lock lock(m_mutex);
    if (shared.RemoveUser(tracer))
    {
        node = m_contexts.extract(context);
    }
    const int useCount = shared.UseCount();
    const std::size_t sidCount = shared.SidCount();
    lock.unlock();
    Raise(tracer, LogLevel::Info);
    tracer.PutResults("use count = {}, sid count = {}", useCount, sidCount);
}

int SettingsManagerCallback::Subscribe(std::string_view prefix,
                                       Iterator context,
                                       const nvl::Path& path,
                                       std::shared_ptr<ISettingsUpdateObserver> observer,
                                       SubscriptionId& sid)
{
    const auto subscribe = [&](trace::Tracer& tracer, const std::string& text)
    {
        return context->second.Subscribe(text, std::move(observer), sid, tracer);
    };
    return RunOperation(prefix, "Subscribe", LogLevel::Debug, path, subscribe);
}

int SettingsManagerCallback::Unsubscribe(std::string_view prefix,
                                         Iterator context,
                                         SubscriptionId sid)
{
    const auto unsubscribe = [&](trace::Tracer& tracer, const std::string& /*text*/)
    {
        return context->second.Unsubscribe(sid, tracer);
    };
    return RunOperation(prefix, "Unsubscribe", LogLevel::Debug, sid, unsubscribe);
}

namespace aux::impl {

SettingsManagerCallback& ProxyLibStaticInit()
{
    static SettingsManagerCallback callback;
    return callback;
}

}  // namespace aux::impl
}  // namespace settings_manager::ipc
