#pragma once

#include <atomic>
#include <cstdint>
#include <string_view>

#include <component/logger/tracer.h>
#include <component/nvl/path.h>
#include <component/plk/semaphore.h>
#include <component/settings_manager/i_settings_manager.h>
#include <component/settings_manager/tvo_ipc/wz_ism_cbk.h>

#include "path_arena.h"
#include "subscription_table.h"

namespace settings_manager::ipc {

/// What the callback thread does: fetches one update after the other and hands it to its observer.
class UpdateLoop final
{
public:
    /// @param useCount  the loop ends when it is 0
    UpdateLoop(const vx_settings_manager_WzISMCbk& client,
               std::uint64_t cid,
               const std::atomic<int>& useCount,
               SubscriptionTable& table);

    /// @param started  posted when the thread runs; not touched afterwards
    void Run(plk::Semaphore& started) noexcept;

private:
    struct Update
    {
        SubscriptionId sid;
        nvl::Path path;
        unsigned char kinds;
    };

    class Delivery;

    void RunRound();
    [[nodiscard]] bool Wait(vx_settings_manager_WzISMCbk_Wait_res& response);
    [[nodiscard]] bool Read(const vx_settings_manager_WzISMCbk_Wait_res& response, Update& update);
    void Deliver(const Update& update);
    [[nodiscard]] bool InvokeObserver(const Update& update);
    void RunObserver(ISettingsUpdateObserver* observer, const Update& update) noexcept;
    void ConfirmDone(SubscriptionId sid);
    void SyncUnsubscription() noexcept;

    [[nodiscard]] bool IsWanted() const
    {
        return m_useCount.load() != 0;
    }

    /// Writes a line behind what is known of the round.
    template <class... Args>
    void Log(tvo::logger::LogLevel level, std::string_view text, const Args&... args) noexcept;

    const vx_settings_manager_WzISMCbk m_client;
    const std::uint64_t m_cid;
    const std::atomic<int>& m_useCount;
    SubscriptionTable& m_table;
    trace::Tracer m_tracer;
    PathArena m_arena;
};

}  // namespace settings_manager::ipc
