#include "callback_context.h"

#include <utility>

#include <component/plk/exceptions.h>
#include <component/settings_manager/tvo_ipc/service_names.h>
#include <component/settings_manager/tvo_ipc/wz_ism_reg.h>

#include "call.h"
#include "mismatch.h"
#include "path_arena.h"
#include "update_loop.h"

namespace settings_manager::ipc {

using tvo::logger::LogLevel;

namespace {

constexpr std::uint32_t WaitTimeoutMs = 2000;

}  // namespace

CallbackChannels::CallbackChannels(const SettingsManagerCmConfig& config)
    : reg(Channel::Connect(config.serviceName, service_names::IsmReg, config.connectTimeoutMs)),
      cbk(Channel::Connect(config.serviceName, service_names::IsmCbk, config.connectTimeoutMs)),
      name(service_names::CmCallback)
{}

CallbackChannels::CallbackChannels(const SettingsManagerConfig& config)
    : reg(Channel::Connect(config.serviceConnection, config.ismRegEndpoint)),
      cbk(Channel::Connect(config.callbackConnection, config.ismCbkEndpoint)),
      name(config.callbackConnection)
{}

CallbackContext::CallbackContext(CallbackChannels channels, trace::Tracer& tracer)
    : m_channels(std::move(channels))
{
    m_channels.cbk.SetCallTimeout(WaitTimeoutMs);
    Register(tracer);
    plk::Semaphore started;
    m_thread = std::thread(
        [this, &started]
        {
            const auto client = m_channels.cbk.As<vx_settings_manager_WzISMCbk>();
            UpdateLoop(client, m_cid, m_useCount, m_table).Run(started);
        });
    started.Wait();
}

CallbackContext::~CallbackContext()
{
    if (m_thread.joinable())
    {
        StopThread();
    }
}

void CallbackContext::Register(trace::Tracer& tracer)
{
    vx_settings_manager_WzISMReg_RegCallback_req request{};
    vx_settings_manager_WzISMReg_RegCallback_res response{};
    PathArena arena;
    ZIN_CHECK_RESULT(arena.Store(m_channels.name, request.name)
                         ? plk::codes::Ok
                         : ReportArena("RegCallback request", tracer),
                     "");
    const auto client = m_channels.reg.As<vx_settings_manager_WzISMReg>();
    Outcome outcome = Call(client, request, arena.Get(), response, nullptr);
    outcome.method = "RegCallback (cbk conn)";
    ZIN_CHECK_RESULT(Report(outcome, tracer), "");
    m_cid = response.cid;
}

bool CallbackContext::RemoveUser(trace::Tracer& tracer)
{
    if (m_useCount != 1)
    {
        --m_useCount;
        return false;
    }
    Unregister(tracer);
    try
    {
        StopThread();
    }
    catch (const std::exception& exception)
    {
        Raise(tracer, LogLevel::Critical);
        tracer.PutResults(" [callback thread join exception = {}] ", exception.what());
    }
    return true;
}

void CallbackContext::Unregister(trace::Tracer& tracer)
{
    vx_settings_manager_WzISMReg_UnregCallback_req request{};
    vx_settings_manager_WzISMReg_UnregCallback_res response{};
    request.cid = m_cid;
    const auto client = m_channels.reg.As<vx_settings_manager_WzISMReg>();
    Report(Call(client, request, nullptr, response, nullptr), tracer);
}

void CallbackContext::StopThread()
{
    m_useCount.store(0);
    // The service leaves a waiting call unanswered, and its limit is long. A delivery under way
    // still wants to be confirmed.
    if (!m_table.IsDelivering())
    {
        m_channels.cbk.Close();
    }
    m_thread.join();
}

int CallbackContext::Subscribe(std::string_view path,
                               SubscriptionTable::Observer observer,
                               SubscriptionId& sid,
                               trace::Tracer& tracer)
{
    SubscriptionTable::Pending pending(m_table);
    const int result = CallSubscribe(path, sid, tracer);
    if (result < 0)
    {
        return result;
    }
    if (!pending.Add(sid, observer))
    {
        Raise(tracer, LogLevel::Error);
        tracer.PutResults(" -> duplicate sid");
        return Mismatch;
    }
    return result;
}

int CallbackContext::CallSubscribe(std::string_view path,
                                   SubscriptionId& sid,
                                   trace::Tracer& tracer)
{
    vx_settings_manager_WzISMReg_Subscribe_req request{};
    vx_settings_manager_WzISMReg_Subscribe_res response{};
    PathArena arena;
    request.cid = m_cid;
    if (!arena.Store(path, request.path))
    {
        return ReportArena("Subscribe request", tracer);
    }
    const auto client = m_channels.reg.As<vx_settings_manager_WzISMReg>();
    const int result = Report(Call(client, request, arena.Get(), response, nullptr), tracer);
    if (result >= 0)
    {
        sid = response.sid;
        tracer.PutResults("${}", sid);
    }
    return result;
}

int CallbackContext::Unsubscribe(SubscriptionId sid, trace::Tracer& tracer)
{
    SubscriptionTable::Removal removal;
    if (!m_table.BeginRemoval(sid, removal))
    {
        Raise(tracer, LogLevel::Error);
        tracer.PutResults(" -> inexistent sid");
        return plk::codes::NotFound;
    }
    vx_settings_manager_WzISMReg_Unsubscribe_req request{};
    vx_settings_manager_WzISMReg_Unsubscribe_res response{};
    request.cid = m_cid;
    request.sid = sid;
    const auto client = m_channels.reg.As<vx_settings_manager_WzISMReg>();
    const Outcome outcome = Call(client, request, nullptr, response, nullptr);
    m_table.EndRemoval(sid);
    const int result = Report(outcome, tracer);
    if (removal.isRunning)
    {
        tracer.LogImpl(LogLevel::Debug, "synchronizing with OnSettingsUpdate()...");
    }
    return result;
}

}  // namespace settings_manager::ipc
