#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <shared/common/tvo/service/i_service_loop.h>

#include "config/child_config.h"
#include "supervision/instant.h"
#include "system/notifier.h"
#include "terminal/lateness.h"
#include "terminal/managed_child.h"

namespace app_manager::service {

/// All children of the terminal: the order in which they are started and ended, and what the end of
/// one means for the others. What happens to a child is told to its supervision at once; what
/// follows from that for all is done at the end of the loop's turn, by `Settle`.
class Terminal final : public ITerminalOfChild
{
public:
    using Children = std::vector<std::unique_ptr<ManagedChild>>;

    /// @param loop, notifier  outlive this
    Terminal(tvo::service::IServiceLoop& loop, INotifier& notifier, Clock clock);
    ~Terminal() override;
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Starts what is there from now on, stops what is there no more, and starts anew what is run
    /// differently.
    void Configure(const std::vector<ChildConfig>& configs);

    /// Does what is to be done after something has happened.
    void Settle();

    /// Ends all, the last one first, and then the loop. Said again, it does not ask any more.
    void Stop();

    [[nodiscard]] bool IsStopping() const
    {
        return m_isStopping;
    }

    /// Whether everything has been up once.
    [[nodiscard]] bool WasReady() const
    {
        return m_wasReady;
    }

    /// @returns null for an unknown name
    [[nodiscard]] ManagedChild* Find(std::string_view name);

    /// @returns the application of this name whose own process has this pid, or null
    [[nodiscard]] ManagedChild* FindApplication(std::string_view name, std::uint32_t pid);

    /// In the order in which they are started.
    [[nodiscard]] const Children& All() const
    {
        return m_children;
    }

    /// The present moment. A manager that was held up gives all children more time.
    Instant Now() override;

private:
    bool MayStart(const ChildConfig& config) const override;
    std::uint32_t StartsOfReadyService(const std::string& name) const override;

    std::unique_ptr<ManagedChild> Take(control::Kind kind, std::string_view name);
    void Advance();
    void LookForServers();
    void PartWithUnwanted();
    void StartWaiting();
    void StopNext();
    void TellState();
    void ArmTimer();
    [[nodiscard]] Children::const_iterator RowOf(std::string_view name) const;
    [[nodiscard]] bool IsUnwanted(std::string_view name) const;
    [[nodiscard]] bool IsTurnOf(std::string_view name) const;

    /// Calls back with each child, those that leave included.
    template <class Callback>
    void ForEach(const Callback& callback) const;

    [[nodiscard]] std::string StateLine() const;

    tvo::service::IServiceLoop& m_loop;
    INotifier& m_notifier;
    const Clock m_clock;
    Lateness m_lateness;
    Children m_children;
    Children m_leaving;  ///< not in the configuration any more, not ended yet
    bool m_isStopping = false;
    bool m_wasReady = false;
    std::string m_toldState;
    std::optional<TimePoint> m_armedFor;
    tvo::service::TimerToken m_timer;
    tvo::service::TimerToken m_latenessTick;
    tvo::service::TimerToken m_aliveTick;
    tvo::service::TimerToken m_serversTick;  ///< where the platform does not tell of new names
};

}  // namespace app_manager::service
