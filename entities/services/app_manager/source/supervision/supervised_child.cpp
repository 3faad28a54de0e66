#include "supervision/supervised_child.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include <component/app_manager/tvo_ipc/command_values.h>
#include <component/app_manager/tvo_ipc/control_words.h>
#include <component/logger/logger.h>
#include <component/plk/process_exception.h>

#include "supervision/end_text.h"

namespace app_manager::service {
namespace {

using control::EndKind;
using std::chrono::milliseconds;
using tvo::service::ChildEnd;

double Seconds(TimePoint::duration span)
{
    return std::chrono::duration<double>(span).count();
}

}  // namespace

SupervisedChild::SupervisedChild(ChildConfig config, IChildActions& actions)
    : m_config(std::move(config)), m_actions(actions)
{}

void SupervisedChild::Enter(Phase phase)
{
    m_phase = phase;
    m_due.reset();
}

void SupervisedChild::Enter(Phase phase, const Instant& now, milliseconds limit)
{
    m_phase = phase;
    m_due = now.steady + limit;
}

void SupervisedChild::Start(const Instant& now)
{
    switch (m_phase)
    {
        case Phase::Starting:
        case Phase::Ready:
        case Phase::Delayed:  // whoever asks often does not make it shorter
            break;
        case Phase::Away:
        case Phase::Waiting:
            StartIfAllowed(now);
            break;
        default:
            if (m_afterwards == Afterwards::StayAway)
            {
                m_afterwards = Afterwards::AtOnce;
            }
            break;
    }
}

void SupervisedChild::StartIfAllowed(const Instant& now)
{
    if (m_actions.MayStart())
    {
        Launch(now);
    }
    else
    {
        Enter(Phase::Waiting);
    }
}

void SupervisedChild::Launch(const Instant& now)
{
    m_afterwards = Afterwards::Restart;
    m_process = {};
    m_process.startedAt = now.steady;
    try
    {
        m_process.pid = m_actions.Start();
    }
    catch (...)
    {
        const std::string cause = plk::utils::ProcessException().second;
        m_lastEnd = control::LastEnd{EndKind::NotStarted, false, 0, now.wall, cause};
        Rest(now);
        return;
    }
    ++m_starts;
    TVO_LOG_INFO("{}: process {} started", m_config.name, m_process.pid);
    Enter(Phase::Starting, now, m_config.limits.start);
    if (!IsApplication() && m_config.provides.empty())
    {
        OnReady(now);
    }
}

void SupervisedChild::Rest(const Instant& now)
{
    const milliseconds delay = m_delay.Next(m_config.limits);
    Enter(Phase::Delayed, now, delay);
    TVO_LOG_WARNING("{}: {}: {}; next start in {} s",
                    m_config.name,
                    control::EndWord(m_lastEnd->kind),
                    m_lastEnd->cause,
                    Seconds(delay));
}

void SupervisedChild::Stop(const Instant& now, Afterwards afterwards, std::string_view why)
{
    switch (m_phase)
    {
        case Phase::Starting:
            // It does not look for commands yet.
            m_afterwards = afterwards;
            Blame(EndKind::Asked, std::string(why));
            Terminate(now);
            break;
        case Phase::Ready:
            m_afterwards = afterwards;
            Blame(EndKind::Asked, std::string(why));
            if (IsApplication())
            {
                m_actions.Close();
                Enter(Phase::Closing, now, m_config.limits.shutdown);
            }
            else
            {
                Terminate(now);
            }
            break;
        case Phase::Waiting:
        case Phase::Delayed:
        case Phase::Away:
            if (afterwards == Afterwards::StayAway)
            {
                Enter(Phase::Away);
            }
            else
            {
                m_delay.FallBack();
                StartIfAllowed(now);
            }
            break;
        default:
            m_afterwards = afterwards;
            break;
    }
}

void SupervisedChild::Kill(std::string_view why)
{
    if (HasProcess())
    {
        Blame(EndKind::Asked, std::string(why));
        m_afterwards = Afterwards::StayAway;
        m_actions.Kill();
        Enter(Phase::Killing);
    }
}

void SupervisedChild::Terminate(const Instant& now)
{
    m_actions.Terminate();
    Enter(Phase::Terminating, now, m_config.limits.stop);
}

/// The first one to blame stays so.
void SupervisedChild::Blame(EndKind kind, std::string cause)
{
    if (!m_process.endKind)
    {
        m_process.endKind = kind;
        m_process.endCause = std::move(cause);
    }
}

void SupervisedChild::OnInitialized()
{
    TVO_LOG_INFO("{}: process {} has begun to initialize", m_config.name, m_process.pid);
}

void SupervisedChild::OnReady(const Instant& now)
{
    if (m_phase != Phase::Starting)
    {
        return;
    }
    m_wasReady = true;
    m_process.readySince = now;
    if (IsApplication())
    {
        Enter(Phase::Ready, now, m_config.limits.ping);
    }
    else
    {
        Enter(Phase::Ready);
    }
    TVO_LOG_INFO(
        "{}: ready after {:.3f} s", m_config.name, Seconds(now.steady - m_process.startedAt));
}

void SupervisedChild::OnPing(const Instant& now)
{
    m_process.lastPing = now;
    if (m_phase == Phase::Ready)
    {
        Enter(Phase::Ready, now, m_config.limits.ping);
    }
}

void SupervisedChild::OnStateChanged(const Instant& now, std::int64_t state)
{
    m_process.reportedState = state;
    TVO_LOG_DEBUG("{}: state {}", m_config.name, state);
    if (state == states::ReadyToShutdown && (IsUp() || m_phase == Phase::Closing))
    {
        TVO_LOG_INFO("{}: process {} is about to exit", m_config.name, m_process.pid);
        Enter(Phase::Exiting, now, m_config.limits.exit);
    }
}

void SupervisedChild::OnInternalError(const Instant& now,
                                      std::string_view error,
                                      std::string_view description)
{
    m_lastError = control::InternalError{std::string(error), std::string(description)};
    if (IsUp())
    {
        Blame(EndKind::InternalError,
              fmt::format(R"(the application has reported "{}": "{}")", error, description));
        Enter(Phase::Exiting, now, m_config.limits.exit);
    }
}

void SupervisedChild::OnEnded(const Instant& now, const ChildEnd& end)
{
    RecordEnd(now, end);
    const bool isAsked = m_lastEnd->kind == EndKind::Asked;
    if (isAsked || WasHealthy(now))
    {
        m_delay.FallBack();
    }
    m_process = {};
    const Afterwards afterwards = std::exchange(m_afterwards, Afterwards::Restart);
    if (afterwards == Afterwards::Restart)
    {
        Rest(now);
        return;
    }
    LogEnd();
    if (afterwards == Afterwards::StayAway)
    {
        Enter(Phase::Away);
    }
    else
    {
        StartIfAllowed(now);
    }
}

void SupervisedChild::RecordEnd(const Instant& now, const ChildEnd& end)
{
    Blame(end.byItself ? EndKind::Exit : EndKind::Crash, "unasked");
    m_lastEnd = control::LastEnd{*m_process.endKind,
                                 !end.byItself,
                                 end.status,
                                 now.wall,
                                 fmt::format("{}, {}", m_process.endCause, TextOf(end))};
}

void SupervisedChild::LogEnd() const
{
    const auto level = m_lastEnd->kind == EndKind::Asked ? tvo::logger::LogLevel::Info
                                                         : tvo::logger::LogLevel::Warning;
    TVO_LOG(
        level, "{}: {}: {}", m_config.name, control::EndWord(m_lastEnd->kind), m_lastEnd->cause);
}

bool SupervisedChild::WasHealthy(const Instant& now) const
{
    return m_process.readySince &&
           now.steady - m_process.readySince->steady >= m_config.limits.healthyAfter;
}

void SupervisedChild::Advance(const Instant& now)
{
    if (!m_due || now.steady < *m_due)
    {
        return;
    }
    const Limits& limits = m_config.limits;
    switch (m_phase)
    {
        case Phase::Starting:
            Blame(EndKind::NotReady, fmt::format("not ready within {} s", Seconds(limits.start)));
            Terminate(now);
            break;
        case Phase::Ready:
            Blame(EndKind::Hang, fmt::format("no ping for {} s", Seconds(limits.ping)));
            m_actions.Abort();
            Enter(Phase::Aborting, now, limits.stop);
            break;
        case Phase::Closing:
        case Phase::Exiting:
            TVO_LOG_WARNING("{}: process {} does not exit in time", m_config.name, m_process.pid);
            Blame(EndKind::Hang, "no exit in time");
            Terminate(now);
            break;
        case Phase::Delayed:
            StartIfAllowed(now);
            break;
        default:
            m_actions.Kill();
            Enter(Phase::Killing);
            break;
    }
}

void SupervisedChild::Prolong(TimePoint::duration time)
{
    if (m_due && HasProcess())
    {
        *m_due += time;
    }
}

control::State SupervisedChild::State() const
{
    switch (m_phase)
    {
        case Phase::Waiting:
            return control::State::Waiting;
        case Phase::Starting:
            return control::State::Starting;
        case Phase::Ready:
            return control::State::Ready;
        case Phase::Delayed:
            return control::State::Delayed;
        case Phase::Away:
            return control::State::Closed;
        default:
            return control::State::Stopping;
    }
}

bool SupervisedChild::HasProcess() const
{
    return m_process.pid != 0;
}

bool SupervisedChild::IsApplication() const
{
    return m_config.kind == control::Kind::Application;
}

control::ApplicationStatus SupervisedChild::Status(const Instant& now) const
{
    const auto rounded = [](TimePoint::duration span)
    {
        return std::chrono::ceil<milliseconds>(std::max(span, TimePoint::duration::zero()));
    };
    control::ApplicationStatus status;
    status.kind = m_config.kind;
    status.state = State();
    status.pid = m_process.pid;
    status.restarts = m_starts > 0 ? m_starts - 1 : 0;
    if (m_process.readySince)
    {
        status.readySince = m_process.readySince->wall;
    }
    if (const auto& ping = m_process.lastPing)
    {
        status.lastPing = control::Ping{ping->wall, rounded(now.steady - ping->steady)};
    }
    if (m_phase == Phase::Delayed)
    {
        status.startsIn = rounded(*m_due - now.steady);
    }
    status.reportedState = m_process.reportedState;
    status.lastEnd = m_lastEnd;
    status.lastError = m_lastError;
    return status;
}

}  // namespace app_manager::service
