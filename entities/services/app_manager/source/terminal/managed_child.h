#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include <shared/common/tvo/service/i_service_loop.h>

#include "config/child_config.h"
#include "supervision/i_child_actions.h"
#include "supervision/supervised_child.h"
#include "terminal/command_slot.h"

namespace app_manager::service {

/// What a child asks the terminal that it belongs to.
class ITerminalOfChild
{
public:
    virtual ~ITerminalOfChild() = default;

    virtual Instant Now() = 0;
    virtual bool MayStart(const ChildConfig& config) const = 0;

    /// @returns the number of processes that a service has had, or 0 while it is not ready
    virtual std::uint32_t StartsOfReadyService(const std::string& name) const = 0;
};

/// A supervised child with its process.
class ManagedChild final : private IChildActions
{
public:
    /// @param loop, terminal  outlive this
    ManagedChild(ChildConfig config, tvo::service::IServiceLoop& loop, ITerminalOfChild& terminal);
    ~ManagedChild() override;
    ManagedChild(const ManagedChild&) = delete;
    ManagedChild& operator=(const ManagedChild&) = delete;

    [[nodiscard]] SupervisedChild& Supervision()
    {
        return m_supervision;
    }

    [[nodiscard]] const SupervisedChild& Supervision() const
    {
        return m_supervision;
    }

    [[nodiscard]] const std::string& Name() const
    {
        return m_supervision.Config().name;
    }

    /// @returns 0 for none
    [[nodiscard]] std::uint32_t Pid() const
    {
        return m_process != nullptr ? m_process->Pid() : 0;
    }

    /// @returns null without a process
    [[nodiscard]] CommandSlot* Commands()
    {
        return m_commands ? &*m_commands : nullptr;
    }

    /// Takes a new configuration. The program starts anew when that concerns it.
    void Reconfigure(ChildConfig config);

    /// Looks whether the name of a starting service is served.
    void LookWhetherServed();

    /// Closes an application whose services are not those any more that it was started with.
    void CloseWithoutNeeds();

private:
    bool MayStart() const override;
    std::uint32_t Start() override;
    void Close() override;
    void Terminate() override;
    void Abort() override;
    void Kill() override;
    void OnEnded(const tvo::service::ChildEnd& end);

    tvo::service::IServiceLoop& m_loop;
    ITerminalOfChild& m_terminal;
    SupervisedChild m_supervision;
    std::unique_ptr<tvo::service::IChild> m_process;
    std::optional<CommandSlot> m_commands;
    std::map<std::string, std::uint32_t> m_needs;  ///< starts of each, as its process began
};

}  // namespace app_manager::service
