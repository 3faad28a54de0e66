#include <algorithm>

#include <component/plk/result_codes.h>
#include <shared/common/utils/cancellation_token.h>

namespace common::utils {

namespace {

using Clock = std::chrono::steady_clock;

/// The clock counts nanoseconds in 64 bits, so a long limit is cut before it is converted.
Clock::time_point DeadlineAfter(std::chrono::milliseconds timeout)
{
    const auto now = Clock::now();
    const auto longest =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::time_point::max() - now);
    return now + std::clamp(timeout, std::chrono::milliseconds::zero(), longest);
}

}  // namespace

CancellationToken::CancellationToken(ExecutionAction action, Reset reset)
    : m_autoReset(reset == Reset::Auto), m_action(action)
{}

CancellationToken::~CancellationToken()
{
    SetAction(ExecutionAction::Cancel);
}

int CancellationToken::GetExecutionAction(ExecutionAction& action) const
{
    action = m_action;
    return plk::codes::Ok;
}

int CancellationToken::GetExecutionAction(ExecutionAction& action,
                                          std::chrono::milliseconds timeout) const
{
    bool woken = false;
    {
        std::unique_lock lock(m_mutex);
        woken = m_signaled ||
                m_condition.wait_until(lock, DeadlineAfter(timeout), [this] { return m_signaled; });
        ConsumeWakeUp();
    }
    // Read behind the lock, so that a change made in between is seen.
    action = m_action;
    return woken ? plk::codes::Ok : plk::codes::False;
}

void CancellationToken::Pause()
{
    SetAction(ExecutionAction::Pause);
}

void CancellationToken::Resume()
{
    SetAction(ExecutionAction::Run);
}

bool CancellationToken::IsPaused() const
{
    return m_action == ExecutionAction::Pause;
}

bool CancellationToken::IsCanceled() const
{
    return m_action == ExecutionAction::Cancel;
}

void CancellationToken::SetAction(ExecutionAction action)
{
    m_action = action;
    // Notified under the lock: the waiter that is released may be about to destroy the token.
    const std::lock_guard lock(m_mutex);
    m_signaled = true;
    if (m_autoReset)
    {
        m_condition.notify_one();
    }
    else
    {
        m_condition.notify_all();
    }
}

void CancellationToken::Wait() const
{
    std::unique_lock lock(m_mutex);
    m_condition.wait(lock, [this] { return m_signaled; });
    ConsumeWakeUp();
}

void CancellationToken::ConsumeWakeUp() const
{
    if (m_autoReset)
    {
        m_signaled = false;
    }
}

}  // namespace common::utils
