#include "terminal/terminal.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <component/logger/logger.h>

namespace app_manager::service {
namespace {

using control::Kind;
using control::State;
using std::chrono::milliseconds;
using Afterwards = SupervisedChild::Afterwards;

constexpr milliseconds LookForServersEvery{100};

bool HadItsTurn(const std::unique_ptr<ManagedChild>& child)
{
    return child->Supervision().HasHadItsTurn();
}

}  // namespace

Terminal::Terminal(tvo::service::IServiceLoop& loop, INotifier& notifier, Clock clock)
    : m_loop(loop), m_notifier(notifier), m_clock(std::move(clock))
{
    m_loop.OnTurnEnd([this] { Settle(); });
    // Both make a turn, and every turn looks.
    if (!m_loop.OnServersChange([] {}))
    {
        TVO_LOG_WARNING("The names of services are looked for every {} ms",
                        LookForServersEvery.count());
        m_serversTick = m_loop.Every(LookForServersEvery, [] {});
    }
    m_latenessTick = m_loop.Every(Lateness::Interval, [this] { Now(); });
    if (const auto interval = m_notifier.AliveInterval())
    {
        m_aliveTick = m_loop.Every(*interval, [this] { m_notifier.Alive(); });
    }
}

Terminal::~Terminal() = default;

template <class Callback>
void Terminal::ForEach(const Callback& callback) const
{
    for (const Children* const children : {&m_children, &m_leaving})
    {
        for (const auto& child : *children)
        {
            callback(*child);
        }
    }
}

Instant Terminal::Now()
{
    const Instant now = m_clock();
    const auto late = m_lateness.Since(now.steady);
    if (late > TimePoint::duration::zero())
    {
        TVO_LOG_WARNING("The manager was held up for {:.3f} s, all limits are moved",
                        std::chrono::duration<double>(late).count());
        ForEach([late](ManagedChild& child) { child.Supervision().Prolong(late); });
    }
    return now;
}

void Terminal::Configure(const std::vector<ChildConfig>& configs)
{
    if (m_isStopping)
    {
        return;
    }
    Children children;
    for (const ChildConfig& config : configs)
    {
        auto child = Take(config.kind, config.name);
        children.push_back(child != nullptr
                               ? std::move(child)
                               : std::make_unique<ManagedChild>(config, m_loop, *this));
    }
    std::swap(m_children, children);
    for (auto& child : children)
    {
        if (child != nullptr)
        {
            TVO_LOG_INFO("{}: is not wanted any more", child->Name());
            m_leaving.push_back(std::move(child));
        }
    }
    for (std::size_t i = 0; i < configs.size(); ++i)
    {
        m_children[i]->Reconfigure(configs[i]);
    }
}

std::unique_ptr<ManagedChild> Terminal::Take(Kind kind, std::string_view name)
{
    for (auto& child : m_children)
    {
        if (child != nullptr && child->Supervision().Config().kind == kind && child->Name() == name)
        {
            return std::move(child);
        }
    }
    return nullptr;
}

ManagedChild* Terminal::Find(std::string_view name)
{
    const auto row = RowOf(name);
    return row != m_children.end() ? row->get() : nullptr;
}

Terminal::Children::const_iterator Terminal::RowOf(std::string_view name) const
{
    return std::find_if(m_children.begin(),
                        m_children.end(),
                        [name](const auto& child) { return child->Name() == name; });
}

ManagedChild* Terminal::FindApplication(std::string_view name, std::uint32_t pid)
{
    ManagedChild* found = nullptr;
    ForEach(
        [&](ManagedChild& child)
        {
            // A process of another namespace has the pid 0 for us, as has a child without one.
            if (pid != 0 && child.Pid() == pid && child.Name() == name &&
                child.Supervision().Config().kind == Kind::Application)
            {
                found = &child;
            }
        });
    return found;
}

void Terminal::Settle()
{
    LookForServers();
    for (const auto& child : m_children)
    {
        child->CloseWithoutNeeds();
    }
    PartWithUnwanted();
    if (m_isStopping)
    {
        StopNext();
    }
    else
    {
        StartWaiting();
    }
    TellState();
    ArmTimer();
}

void Terminal::LookForServers()
{
    for (const auto& child : m_children)
    {
        child->LookWhetherServed();
    }
}

/// Before others are started, who may have waited for the name.
void Terminal::PartWithUnwanted()
{
    for (const auto& child : m_leaving)
    {
        child->Supervision().Stop(Now(), Afterwards::StayAway, "it is not wanted any more");
    }
    std::erase_if(m_leaving, [](const auto& child) { return !child->Supervision().HasProcess(); });
}

void Terminal::StartWaiting()
{
    for (const auto& child : m_children)
    {
        if (child->Supervision().State() == State::Waiting)
        {
            child->Supervision().Start(Now());
        }
    }
}

bool Terminal::MayStart(const ChildConfig& config) const
{
    const auto isReady = [this](const std::string& need)
    {
        return StartsOfReadyService(need) != 0;
    };
    return !m_isStopping && !IsUnwanted(config.name) && IsTurnOf(config.name) &&
           std::all_of(config.needs.begin(), config.needs.end(), isReady);
}

bool Terminal::IsUnwanted(std::string_view name) const
{
    return std::any_of(m_leaving.begin(),
                       m_leaving.end(),
                       [name](const auto& child) { return child->Name() == name; });
}

/// The order is that of the first start; later on nobody waits for those before.
bool Terminal::IsTurnOf(std::string_view name) const
{
    const auto own = RowOf(name);
    return own != m_children.end() &&
           ((*own)->Supervision().WasReady() || std::all_of(m_children.begin(), own, &HadItsTurn));
}

std::uint32_t Terminal::StartsOfReadyService(const std::string& name) const
{
    const auto row = RowOf(name);
    if (row == m_children.end())
    {
        return 0;
    }
    const SupervisedChild& service = (*row)->Supervision();
    const bool isReady = service.Config().kind == Kind::Service && service.State() == State::Ready;
    return isReady ? service.Starts() : 0;
}

void Terminal::Stop()
{
    if (!std::exchange(m_isStopping, true))
    {
        TVO_LOG_INFO("The terminal is stopped");
        m_notifier.Stopping();
        return;
    }
    TVO_LOG_WARNING("The terminal is stopped at once");
    ForEach([](ManagedChild& child)
            { child.Supervision().Kill("the terminal is stopped at once"); });
}

/// One after the other, the last one first; those without a process do not come back.
void Terminal::StopNext()
{
    const Instant now = Now();
    bool isWaiting = false;
    const auto stop = [&](const auto& managed)
    {
        SupervisedChild& child = managed->Supervision();
        if (!isWaiting || !child.HasProcess())
        {
            child.Stop(now, Afterwards::StayAway, "the terminal is stopped");
        }
        isWaiting = isWaiting || child.HasProcess();
    };
    std::for_each(m_children.rbegin(), m_children.rend(), stop);
    if (!isWaiting && m_leaving.empty())
    {
        m_loop.Stop();
    }
}

void Terminal::TellState()
{
    if (!m_wasReady && !m_isStopping &&
        std::all_of(m_children.begin(), m_children.end(), &HadItsTurn))
    {
        m_wasReady = true;
        TVO_LOG_INFO("The terminal is ready");
        m_notifier.Ready();
    }
    std::string line = StateLine();
    if (line != m_toldState)
    {
        m_notifier.Status(line);
        m_toldState = std::move(line);
    }
}

std::string Terminal::StateLine() const
{
    std::size_t ready = 0;
    std::string others;
    for (const auto& child : m_children)
    {
        const State state = child->Supervision().State();
        if (state == State::Ready)
        {
            ++ready;
        }
        else if (state != State::Closed)
        {
            others += (others.empty() ? ", not yet: " : ", ") + child->Name();
        }
    }
    return m_isStopping ? "stopping"
                        : fmt::format("{} of {} ready{}", ready, m_children.size(), others);
}

void Terminal::Advance()
{
    const Instant now = Now();
    m_armedFor.reset();
    ForEach([&now](ManagedChild& child) { child.Supervision().Advance(now); });
}

/// One that is too early stays: it costs less than a new one for every ping.
void Terminal::ArmTimer()
{
    std::optional<TimePoint> due;
    ForEach(
        [&due](const ManagedChild& child)
        {
            const auto own = child.Supervision().Due();
            due = own && (!due || *own < *due) ? own : due;
        });
    if (!due)
    {
        m_timer.reset();
        m_armedFor.reset();
    }
    else if (!m_armedFor || *due < *m_armedFor)
    {
        const auto left = std::chrono::ceil<milliseconds>(*due - m_clock().steady);
        m_timer = m_loop.After(left, [this] { Advance(); });
        m_armedFor = due;
    }
}

}  // namespace app_manager::service
