#pragma once

#include <shared/common/tvo/service/i_service_loop.h>

#include "front/commands_handler.h"
#include "front/control_handler.h"
#include "front/controller_handler.h"
#include "front/watchdog_handler.h"
#include "terminal/terminal.h"

namespace app_manager::service {

/// Takes the manager's names and serves a terminal's applications and those who steer it.
class ManagerService final
{
public:
    /// @param loop  calls this until it is destroyed
    /// @throws zin::Exception  when a name is taken
    ManagerService(tvo::service::IServiceLoop& loop, Terminal& terminal);

private:
    ControllerHandler m_controller;
    CommandsHandler m_commands;
    WatchdogHandler m_watchdog;
    ControlHandler m_control;
};

}  // namespace app_manager::service
