#include "application_commands.h"

#include <component/app_manager/tvo_ipc/application_commands.h>
#include <xo/handle.h>

namespace tvoipc_detail::idl_traits {

using CommandsProxy = Proxy<tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationCommands>;

void CommandsProxy::GetUpdateHandle(const Bytes& appName, unsigned int& handle)
{
    const auto response = SendName<vx_app_manager_ApplicationCommands_GetUpdateHandle_req>(appName);
    const std::uint32_t number = response.handle.handle & WzNoHandleInMessage;
    handle = number == WzNoHandleInMessage ? XoInvalidHandle : number;
}

void CommandsProxy::GetCommand(const Bytes& appName, long& command, int& result)
{
    const auto response = SendName<vx_app_manager_ApplicationCommands_GetCommand_req>(appName);
    command = response.command;
    result = response.result;
}

}  // namespace tvoipc_detail::idl_traits
