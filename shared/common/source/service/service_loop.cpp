#include "service_loop.h"

#include <algorithm>
#include <utility>

#include <component/plk/exceptions.h>
#include <shared/ipc_utils/publish.h>
#include <xo/result.h>

#include "child_watch.h"
#include "guarded.h"
#include "request_source.h"
#include "signal_source.h"

namespace tvo::service {
namespace {

constexpr std::uint64_t TerminationKey = 0;

STvoWaitSet* MakeWaitSet()
{
    STvoWaitSet* set = nullptr;
    ZIN_CHECK_RESULT(TvoWaitSetCreate(&set), "Cannot make a wait set");
    return set;
}

}  // namespace

ServiceLoop::ServiceLoop() : m_waitSet(MakeWaitSet()), m_ready(1)
{
    ZIN_CHECK_RESULT(TvoWaitSetAddTermination(m_waitSet.get(), TerminationKey),
                     "Cannot wait for signals");
}

ServiceLoop::~ServiceLoop() = default;

std::uint64_t ServiceLoop::Add(std::shared_ptr<ISource> source)
{
    const std::uint64_t key = m_nextKey++;
    m_sources.emplace(key, std::move(source));
    // Never less, for the keys of a turn may be walked through right now.
    m_ready.resize(std::max(m_ready.size(), m_sources.size() + 1));
    return key;
}

void ServiceLoop::Serve(const ServedInterface& served, InterfaceHandlers handlers)
{
    const auto source = std::make_shared<RequestSource>(served, handlers);
    if (served.reach == ServedInterface::Reach::PublishedService)
    {
        Publish(served, handlers, source->Endpoint());
    }
    const int result = TvoWaitSetAddHandle(m_waitSet.get(), source->Endpoint(), Add(source));
    ZIN_CHECK_RESULT(result, "Cannot wait for requests to " << served.name);
}

void ServiceLoop::Publish(const ServedInterface& served,
                          const InterfaceHandlers& handlers,
                          std::uint32_t endpoint)
{
    ZIN_CHECK(
        ::shared::ipc_utils::TryPublishService(served.interfaceName.c_str(), served.name.c_str()),
        "Failed to publish service '" << served.name << "'");
    if (m_acceptor == nullptr)
    {
        const auto acceptor = std::make_shared<ConnectionAcceptor>();
        const int result = TvoWaitSetAddConnectionRequests(m_waitSet.get(), Add(acceptor));
        ZIN_CHECK_RESULT(result, "Cannot wait for clients");
        m_acceptor = acceptor;
    }
    m_acceptor->Add(served.name, {served.riid, endpoint, handlers.admit});
}

int ServiceLoop::Answer(Ticket ticket, const wz_message* response, const wz_arena* arena)
{
    return WzTvoTicketReply(&ticket, response, arena);
}

TimerToken ServiceLoop::After(std::chrono::milliseconds delay, Callback callback)
{
    return m_timers.AddOnce(delay, std::move(callback));
}

TimerToken ServiceLoop::Every(std::chrono::milliseconds interval, Callback callback)
{
    return m_timers.AddRepeating(interval, std::move(callback));
}

std::unique_ptr<IChild> ServiceLoop::StartChild(const ChildProgram& program,
                                                std::function<void(const ChildEnd& end)> ended)
{
    const std::uint64_t key = m_nextKey;
    const auto over = [this, key]
    {
        TvoWaitSetRemove(m_waitSet.get(), key);
        m_sources.erase(key);
    };
    auto watch = std::make_shared<ChildWatch>(program, std::move(ended), over);
    const int result = TvoWaitSetAddHandle(m_waitSet.get(), watch->Handle(), Add(watch));
    if (result != XoOk)
    {
        watch->KillAndAwait();
        m_sources.erase(key);
    }
    ZIN_CHECK_RESULT(result, "Cannot watch " << program.path);
    return std::make_unique<Child>(std::move(watch));
}

void ServiceLoop::OnTurnEnd(Callback callback)
{
    m_turnEnd = std::move(callback);
}

void ServiceLoop::OnTermination(Callback callback)
{
    m_termination = std::move(callback);
}

void ServiceLoop::OnReload(Callback callback)
{
    const auto source = std::make_shared<SignalSource>("the reload", std::move(callback));
    ZIN_CHECK_RESULT(TvoWaitSetAddReload(m_waitSet.get(), Add(source)), "Cannot wait for SIGHUP");
}

bool ServiceLoop::OnServersChange(Callback callback)
{
    const auto source = std::make_shared<SignalSource>("a server's change", std::move(callback));
    const std::uint64_t key = Add(source);
    const bool watched = TvoWaitSetAddServerChanges(m_waitSet.get(), key) == XoOk;
    if (!watched)
    {
        m_sources.erase(key);
    }
    return watched;
}

int ServiceLoop::Run()
{
    int result = XoOk;
    while (!m_stopping && result == XoOk)
    {
        result = Turn();
    }
    m_stopping = false;
    return result;
}

int ServiceLoop::Turn()
{
    int result = WaitAndServe(m_timers.TimeLeft(TimerQueue::Clock::now()), ISource::Amount::One);
    const auto now = TimerQueue::Clock::now();
    if (result == XoOk && m_timers.HasDue(now))
    {
        // What had been said before that moment counts before it.
        result = WaitAndServe(0, ISource::Amount::OneOfEachClient);
        m_timers.RunDue(now);
    }
    if (m_turnEnd)
    {
        Guarded("the end of a turn", m_turnEnd);
    }
    return result;
}

int ServiceLoop::WaitAndServe(std::uint32_t limit, ISource::Amount amount)
{
    unsigned long count = 0;
    const int result =
        TvoWaitSetWait(m_waitSet.get(), limit, m_ready.size(), m_ready.data(), &count);
    // What is called may add to the sources.
    for (unsigned long i = 0; i < count; ++i)
    {
        OnReady(m_ready[i], amount);
    }
    return result == XoTimedOut ? XoOk : result;
}

void ServiceLoop::OnReady(std::uint64_t key, ISource::Amount amount)
{
    if (key == TerminationKey)
    {
        Terminate();
        return;
    }
    const auto row = m_sources.find(key);
    if (row != m_sources.end())
    {
        const std::shared_ptr<ISource> source = row->second;
        source->OnReady(amount);
    }
}

void ServiceLoop::Terminate()
{
    if (m_termination)
    {
        Guarded("the termination", m_termination);
    }
    else
    {
        Stop();
    }
}

void ServiceLoop::Stop()
{
    m_stopping = true;
    TvoWaitSetWake(m_waitSet.get());
}

std::unique_ptr<IServiceLoop> CreateServiceLoop()
{
    return std::make_unique<ServiceLoop>();
}

}  // namespace tvo::service
