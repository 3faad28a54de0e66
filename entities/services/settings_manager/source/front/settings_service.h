#pragma once

#include <cstdint>
#include <memory>

#include <shared/common/tvo/service/i_service_loop.h>

#include "front/ism_cbk_handler.h"
#include "front/ism_handler.h"
#include "front/ism_reg_handler.h"
#include "store/store.h"
#include "updates/context_table.h"

namespace settings_manager::service {

/// A store with its three interfaces on a loop.
class SettingsService final
{
public:
    /// Takes the names of the interfaces; clients are served from `Run` on.
    /// @throws zin::CheckFailedException when a name is taken
    SettingsService(std::unique_ptr<tvo::service::IServiceLoop> loop, Store& store);

    /// Serves until SIGTERM or SIGINT.
    /// @returns 0, or a failure code of the platform
    [[nodiscard]] int Run();

private:
    void ServeIsm();
    void ServeIsmReg();
    void ServeIsmCbk();
    void OnTurnEnd();

    ContextTable m_contexts;
    IsmHandler m_ism;
    IsmRegHandler m_ismReg;
    IsmCbkHandler m_ismCbk;
    tvo::service::TimerToken m_sweep;  ///< while there are transfers
    // The loop calls what stands above until it is gone, so it goes first.
    std::unique_ptr<tvo::service::IServiceLoop> m_loop;
};

}  // namespace settings_manager::service
