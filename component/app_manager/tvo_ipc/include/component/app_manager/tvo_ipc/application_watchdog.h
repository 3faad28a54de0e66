#pragma once

#include <component/app_manager/tvo_ipc/common_records.h>

// The interface ApplicationWatchdog: an application shows that it is alive.

struct vx_app_manager_ApplicationWatchdog_Ping_req : vx_app_manager_name_req
{
    using Response = vx_app_manager_result_res;
    static constexpr std::uint16_t Mid = 0;
    static constexpr char Name[] = "vx_app_manager_ApplicationWatchdog_Ping";
};
