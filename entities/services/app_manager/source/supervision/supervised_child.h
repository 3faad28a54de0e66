#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <component/app_manager/tvo_ipc/control_records.h>
#include <shared/common/tvo/service/i_service_loop.h>

#include "config/child_config.h"
#include "supervision/i_child_actions.h"
#include "supervision/instant.h"
#include "supervision/restart_delay.h"

namespace app_manager::service {

/// The life of one child, of which processes come and go: when it is started, what it may take how
/// long, how it is ended and when it comes back. Knows no process and no clock: it is told what has
/// happened and when, and names the next moment at which it wants to be asked.
class SupervisedChild final
{
public:
    /// What follows the end of the process that runs.
    enum class Afterwards
    {
        Restart,   ///< a pause, then the next one
        AtOnce,    ///< the next one without a pause
        StayAway,  ///< nothing, until somebody asks
    };

    /// @param actions  outlives this
    SupervisedChild(ChildConfig config, IChildActions& actions);

    [[nodiscard]] const ChildConfig& Config() const
    {
        return m_config;
    }

    /// Limits count from the next step on, what concerns the program from the next start on.
    void SetConfig(ChildConfig config)
    {
        m_config = std::move(config);
    }

    // What is wanted of it. None has an effect on what is on its way to that already.

    /// Starts it as soon as it may be; one that is on its way to its end comes back after that.
    void Start(const Instant& now);

    /// Ends it in order.
    /// @param why  for the status, for instance "closed by command"
    void Stop(const Instant& now, Afterwards afterwards, std::string_view why);

    /// Ends it at once and for good.
    void Kill(std::string_view why);

    // What has happened to it.

    void OnInitialized();
    void OnReady(const Instant& now);
    void OnPing(const Instant& now);
    void OnStateChanged(const Instant& now, std::int64_t state);
    void OnInternalError(const Instant& now, std::string_view error, std::string_view description);
    void OnEnded(const Instant& now, const tvo::service::ChildEnd& end);

    /// Does what is due.
    void Advance(const Instant& now);

    /// @returns when there will be something due, if nothing happens before
    [[nodiscard]] std::optional<TimePoint> Due() const
    {
        return m_due;
    }

    /// Gives the child more time, since it had no chance to be heard.
    void Prolong(TimePoint::duration time);

    [[nodiscard]] control::State State() const;
    [[nodiscard]] bool HasProcess() const;

    /// Whether its process does what it is there for, or is on its way to that.
    [[nodiscard]] bool IsUp() const
    {
        return m_phase == Phase::Starting || m_phase == Phase::Ready;
    }

    /// Whether those that come after it may be started for the first time.
    [[nodiscard]] bool HasHadItsTurn() const
    {
        return m_wasReady || m_phase == Phase::Away;
    }

    /// Whether one of its processes was ready.
    [[nodiscard]] bool WasReady() const
    {
        return m_wasReady;
    }

    /// How many processes were started.
    [[nodiscard]] std::uint32_t Starts() const
    {
        return m_starts;
    }

    [[nodiscard]] control::ApplicationStatus Status(const Instant& now) const;

private:
    enum class Phase
    {
        Waiting,   ///< until it may be started
        Starting,  ///< not ready yet
        Ready,
        Closing,      ///< told to close
        Exiting,      ///< has said that it will exit
        Terminating,  ///< SIGTERM sent
        Aborting,     ///< SIGABRT sent
        Killing,      ///< SIGKILL sent
        Delayed,      ///< no process, the next one comes
        Away,         ///< no process, none comes
    };

    /// What is known of one process.
    struct Process
    {
        std::uint32_t pid = 0;
        TimePoint startedAt;
        std::optional<Instant> readySince;
        std::optional<Instant> lastPing;
        std::optional<std::int64_t> reportedState;
        std::optional<control::EndKind> endKind;  ///< decided before its end
        std::string endCause;
    };

    void Enter(Phase phase);
    void Enter(Phase phase, const Instant& now, std::chrono::milliseconds limit);
    void StartIfAllowed(const Instant& now);
    void Launch(const Instant& now);
    void Rest(const Instant& now);
    void Blame(control::EndKind kind, std::string cause);
    void Terminate(const Instant& now);
    void RecordEnd(const Instant& now, const tvo::service::ChildEnd& end);
    void LogEnd() const;
    [[nodiscard]] bool WasHealthy(const Instant& now) const;
    [[nodiscard]] bool IsApplication() const;

    ChildConfig m_config;
    IChildActions& m_actions;
    Phase m_phase = Phase::Waiting;
    std::optional<TimePoint> m_due;
    Afterwards m_afterwards = Afterwards::Restart;
    RestartDelay m_delay;
    std::uint32_t m_starts = 0;
    bool m_wasReady = false;
    Process m_process;
    std::optional<control::LastEnd> m_lastEnd;
    std::optional<control::InternalError> m_lastError;
};

}  // namespace app_manager::service
