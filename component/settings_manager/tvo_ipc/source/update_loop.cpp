#include "update_loop.h"

#include <exception>
#include <memory>

#include <component/logger/formatters.h>
#include <component/nvl/error.h>
#include <component/nvl/path_text.h>
#include <component/settings_manager/id_specification.h>
#include <component/settings_manager/path_to_str.h>
#include <xo/sleep.h>

#include "call.h"

namespace settings_manager::ipc {

using tvo::logger::LogLevel;

namespace {

constexpr std::uint32_t PauseAfterFailureMs = 1000;

}  // namespace

UpdateLoop::UpdateLoop(const vx_settings_manager_WzISMCbk& client,
                       std::uint64_t cid,
                       const std::atomic<int>& useCount,
                       SubscriptionTable& table)
    : m_client(client),
      m_cid(cid),
      m_useCount(useCount),
      m_table(table),
      m_tracer("[SM_P] ", "OnSettingsUpdate", LogLevel::Info)
{
    m_tracer.PutArguments("@{:16X}", m_cid);
}

template <class... Args>
void UpdateLoop::Log(LogLevel level, std::string_view text, const Args&... args) noexcept
{
    try
    {
        m_tracer.LogImpl(level, text, args...);
    }
    catch (const std::exception&)
    {
        // A line that cannot be written is no reason to miss an update.
    }
}

void UpdateLoop::Run(plk::Semaphore& started) noexcept
{
    Log(LogLevel::Info, "");
    started.Post();
    while (IsWanted())
    {
        try
        {
            RunRound();
        }
        catch (const std::exception& exception)
        {
            Log(LogLevel::Error, ": {}", exception.what());
            XoSleep(PauseAfterFailureMs);
        }
    }
    m_tracer.Results().clear();
    Log(LogLevel::Info, "exit");
    m_tracer.SetLevel(LogLevel::Off);
}

void UpdateLoop::RunRound()
{
    m_tracer.Results().clear();
    m_tracer.SetLevel(LogLevel::Debug);
    vx_settings_manager_WzISMCbk_Wait_res response{};
    Update update{};
    if (Wait(response) && Read(response, update))
    {
        Deliver(update);
    }
}

bool UpdateLoop::Wait(vx_settings_manager_WzISMCbk_Wait_res& response)
{
    vx_settings_manager_WzISMCbk_Wait_req request{};
    request.cid = m_cid;
    Outcome outcome;
    do
    {
        response = {};
        m_arena.Reset();
        outcome = Call(m_client, request, nullptr, response, m_arena.Get());
    } while (outcome.transport == WzTimedOut && IsWanted());
    if (!IsWanted())
    {
        return false;
    }
    if (outcome.HasFailed())
    {
        Report(outcome, m_tracer);
        Log(m_tracer.Level(), "");
        XoSleep(PauseAfterFailureMs);
        return false;
    }
    return true;
}

bool UpdateLoop::Read(const vx_settings_manager_WzISMCbk_Wait_res& response, Update& update)
{
    const auto text = tvo::ipc::arena::ReadText(*m_arena.Get(), response.path);
    auto [path, state] = nvl::FromString(text.value_or(""), meta::GetIdSpecification());
    update = {response.sid, std::move(path), response.update};
    m_tracer.PutResults("${}, path = {}, upd = {}", update.sid, update.path, update.kinds);
    if (!text)
    {
        Log(LogLevel::Error, ": Wait response arena fail");
    }
    else if (state != nvl::IdState::Ok)
    {
        Log(LogLevel::Warning, " -> path nvl::IdState = {}", state);
    }
    else if (update.sid == 0)
    {
        Log(LogLevel::Warning, " -> null sid");
    }
    return text && state == nvl::IdState::Ok && update.sid != 0;
}

/// Ends a delivery, whatever happens in it.
class UpdateLoop::Delivery final
{
public:
    explicit Delivery(UpdateLoop& loop) : m_loop(loop) {}
    ~Delivery()
    {
        m_loop.SyncUnsubscription();
    }

    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;

private:
    UpdateLoop& m_loop;
};

void UpdateLoop::Deliver(const Update& update)
{
    if (InvokeObserver(update))
    {
        const Delivery delivery(*this);
        ConfirmDone(update.sid);
    }
}

bool UpdateLoop::InvokeObserver(const Update& update)
{
    for (;;)
    {
        SubscriptionTable::Observer observer;
        switch (m_table.BeginDelivery(update.sid, observer))
        {
            case SubscriptionTable::Finding::Active:
                RunObserver(observer.get(), update);
                return true;
            case SubscriptionTable::Finding::Leaving:
                return false;
            case SubscriptionTable::Finding::Unknown:
                Log(LogLevel::Error, " -> sid not found");
                return false;
            case SubscriptionTable::Finding::Expected:
                Log(LogLevel::Debug, "new sid - waiting for Subscribe()...");
                m_table.WaitForSubscribe();
                break;
        }
    }
}

void UpdateLoop::RunObserver(ISettingsUpdateObserver* observer, const Update& update) noexcept
{
    Log(LogLevel::Trace, ": {} =>", "InvokeObserver");
    try
    {
        const int result =
            observer != nullptr ? observer->OnSettingsUpdate(update.path, update.kinds) : 0;
        Log(LogLevel::Trace, ": <= {}", result);
    }
    catch (...)
    {
        Log(LogLevel::Error, ": <= {}", nvl::ProcessException());
    }
}

void UpdateLoop::ConfirmDone(SubscriptionId sid)
{
    vx_settings_manager_WzISMCbk_Done_req request{};
    vx_settings_manager_WzISMCbk_Done_res response{};
    request.cid = m_cid;
    request.sid = sid;
    if (Report(Call(m_client, request, nullptr, response, nullptr), m_tracer) < 0)
    {
        Log(m_tracer.Level(), "");
    }
}

void UpdateLoop::SyncUnsubscription() noexcept
{
    if (plk::Semaphore* const ended = m_table.EndDelivery())
    {
        Log(LogLevel::Debug, "synchronizing with Unsubscribe()...");
        ended->Post();
    }
}

}  // namespace settings_manager::ipc
