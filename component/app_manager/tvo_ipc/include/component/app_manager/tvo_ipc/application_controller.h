#pragma once

#include <component/app_manager/tvo_ipc/common_records.h>

// The interface ApplicationController: an application reports how far it has come. The type of a
// request names its method's number and response.

struct vx_app_manager_ApplicationController_StartApplication_req : vx_app_manager_name_req
{
    using Response = vx_app_manager_result_res;
    static constexpr std::uint16_t Mid = 0;
    static constexpr char Name[] = "vx_app_manager_ApplicationController_StartApplication";
};

struct vx_app_manager_ApplicationController_ReadyToInitialize_req : vx_app_manager_name_req
{
    using Response = vx_app_manager_result_res;
    static constexpr std::uint16_t Mid = 1;
    static constexpr char Name[] = "vx_app_manager_ApplicationController_ReadyToInitialize";
};

struct vx_app_manager_ApplicationController_ReadyToShowUI_req : vx_app_manager_name_req
{
    using Response = vx_app_manager_result_res;
    static constexpr std::uint16_t Mid = 2;
    static constexpr char Name[] = "vx_app_manager_ApplicationController_ReadyToShowUI";
};

struct alignas(8) vx_app_manager_ApplicationController_FinishWithInternalError_req
{
    using Response = vx_app_manager_result_res;
    static constexpr std::uint16_t Mid = 3;
    static constexpr char Name[] = "vx_app_manager_ApplicationController_FinishWithInternalError";

    wz_message base;
    tvo::ipc::arena::Reference appName;
    tvo::ipc::arena::Reference error;
    tvo::ipc::arena::Reference description;
};

static_assert(sizeof(vx_app_manager_ApplicationController_FinishWithInternalError_req) == 48);
static_assert(offsetof(vx_app_manager_ApplicationController_FinishWithInternalError_req, appName) ==
              24);
static_assert(offsetof(vx_app_manager_ApplicationController_FinishWithInternalError_req, error) ==
              32);
static_assert(offsetof(vx_app_manager_ApplicationController_FinishWithInternalError_req,
                       description) == 40);

struct alignas(8) vx_app_manager_ApplicationController_StateChanged_req
{
    using Response = vx_app_manager_result_res;
    static constexpr std::uint16_t Mid = 4;
    static constexpr char Name[] = "vx_app_manager_ApplicationController_StateChanged";

    wz_message base;
    tvo::ipc::arena::Reference appName;
    std::int64_t state;
};

static_assert(sizeof(vx_app_manager_ApplicationController_StateChanged_req) == 40);
static_assert(offsetof(vx_app_manager_ApplicationController_StateChanged_req, appName) == 24);
static_assert(offsetof(vx_app_manager_ApplicationController_StateChanged_req, state) == 32);
