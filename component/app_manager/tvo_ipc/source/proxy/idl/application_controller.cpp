#include "application_controller.h"

#include <component/app_manager/tvo_ipc/application_controller.h>

namespace tvoipc_detail::idl_traits {

using ControllerProxy = Proxy<tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationController>;

static_assert(sizeof(ControllerProxy) == 80);

void ControllerProxy::StartApplication(const Bytes& appName, int& result)
{
    result = SendName<vx_app_manager_ApplicationController_StartApplication_req>(appName).result;
}

void ControllerProxy::ReadyToInitialize(const Bytes& appName, int& result)
{
    result = SendName<vx_app_manager_ApplicationController_ReadyToInitialize_req>(appName).result;
}

void ControllerProxy::ReadyToShowUI(const Bytes& appName, int& result)
{
    result = SendName<vx_app_manager_ApplicationController_ReadyToShowUI_req>(appName).result;
}

void ControllerProxy::FinishWithInternalError(const Bytes& appName,
                                              const Bytes& error,
                                              const Bytes& description,
                                              int& result)
{
    vx_app_manager_ApplicationController_FinishWithInternalError_req request{};
    Arena arena(::app_manager::limits::ErrorArena);
    arena.Pack(appName, request.appName);
    arena.Pack(error, request.error);
    arena.Pack(description, request.description);
    result = Send(request, arena).result;
}

void ControllerProxy::StateChanged(const Bytes& appName, long state, int& result)
{
    vx_app_manager_ApplicationController_StateChanged_req request{};
    Arena arena(::app_manager::limits::NameArena);
    arena.Pack(appName, request.appName);
    request.state = state;
    result = Send(request, arena).result;
}

}  // namespace tvoipc_detail::idl_traits
