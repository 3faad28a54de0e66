#include "application_watchdog.h"

#include <component/app_manager/tvo_ipc/application_watchdog.h>

namespace tvoipc_detail::idl_traits {

using WatchdogProxy = Proxy<tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationWatchdog>;

void WatchdogProxy::Ping(const Bytes& appName, int& result)
{
    result = SendName<vx_app_manager_ApplicationWatchdog_Ping_req>(appName).result;
}

}  // namespace tvoipc_detail::idl_traits
