#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace common::utils {

/// Tells a worker whether to go on. Every operation may be called from any thread.
class ICancellationToken
{
public:
    enum class ExecutionAction : std::int32_t
    {
        Run = 0,     ///< go on working
        Pause = 1,   ///< stop working, stay alive
        Cancel = 2,  ///< end
    };

    virtual ~ICancellationToken() = default;

    /// Reads the action without waiting and without a lock.
    /// @returns 0
    virtual int GetExecutionAction(ExecutionAction& action) const = 0;

    /// Waits for a wake-up, then reads the action. A wake-up that came while nobody was waiting
    /// ends the wait at once.
    /// @returns 0 when woken, 1 when the time is up; `action` is set in both cases
    virtual int GetExecutionAction(ExecutionAction& action,
                                   std::chrono::milliseconds timeout) const = 0;

    /// Sets the action to `Pause` and wakes.
    virtual void Pause() = 0;

    /// Sets the action to `Run` and wakes.
    virtual void Resume() = 0;

    virtual bool IsPaused() const = 0;
    virtual bool IsCanceled() const = 0;
};

/// The token with an event of its own. Wake-ups are a flag and not a counter: two of them before a
/// wait end one wait.
///
/// Destruction cancels and wakes, but the storage goes at once: the owner ends its thread first.
class CancellationToken final : public ICancellationToken
{
public:
    enum class Reset
    {
        Auto,    ///< one waiter sees a wake-up and consumes it
        Manual,  ///< once woken, every wait ends at once
    };

    explicit CancellationToken(ExecutionAction action, Reset reset = Reset::Auto);
    ~CancellationToken() override;

    CancellationToken(const CancellationToken&) = delete;
    CancellationToken& operator=(const CancellationToken&) = delete;

    int GetExecutionAction(ExecutionAction& action) const override;
    int GetExecutionAction(ExecutionAction& action,
                           std::chrono::milliseconds timeout) const override;
    void Pause() override;
    void Resume() override;
    bool IsPaused() const override;
    bool IsCanceled() const override;

    /// Stores the action and wakes.
    void SetAction(ExecutionAction action);

    /// Waits for a wake-up without a limit.
    void Wait() const;

private:
    void ConsumeWakeUp() const;

    mutable std::mutex m_mutex;
    mutable std::condition_variable m_condition;
    const bool m_autoReset;
    mutable bool m_signaled = false;
    std::atomic<ExecutionAction> m_action;
};

}  // namespace common::utils
