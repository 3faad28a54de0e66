#include "front/commands_handler.h"

#include <component/app_manager/tvo_ipc/application_commands.h>
#include <component/plk/result_codes.h>

#include "front/reporter.h"

namespace app_manager::service {
namespace {

using HandleRequest = vx_app_manager_ApplicationCommands_GetUpdateHandle_req;
using CommandRequest = vx_app_manager_ApplicationCommands_GetCommand_req;

}  // namespace

Outcome CommandsHandler::Serve(const ServiceCall& call)
{
    switch (call.request->mid)
    {
        case HandleRequest::Mid:
            return GetUpdateHandle(call);
        case CommandRequest::Mid:
            return GetCommand(call);
        default:
            return Outcome::Reject;
    }
}

Outcome CommandsHandler::GetUpdateHandle(const ServiceCall& call)
{
    const NamedRequest<HandleRequest> request(call);
    if (!request)
    {
        return Outcome::Reject;
    }
    const Reporter reporter(m_terminal, *request.name, call.caller.pid);
    auto& response = call.Response<HandleRequest::Response>();
    response.base.size |= HandleRequest::Response::Handles << WzMessageHandleCountShift;
    const std::uint32_t handle =
        reporter.child != nullptr ? reporter.child->Commands()->UpdateHandle() : XoInvalidHandle;
    response.handle.handle = handle & WzNoHandleInMessage;
    return Outcome::Answer;
}

Outcome CommandsHandler::GetCommand(const ServiceCall& call)
{
    const NamedRequest<CommandRequest> request(call);
    if (!request)
    {
        return Outcome::Reject;
    }
    const Reporter reporter(m_terminal, *request.name, call.caller.pid);
    auto& response = call.Response<CommandRequest::Response>();
    response.result = reporter.refusal;
    if (reporter.child != nullptr)
    {
        const auto command = reporter.child->Commands()->Fetch();
        response.command = command.value_or(0);
        response.result = command ? 0 : plk::codes::NotFound;
    }
    return Outcome::Answer;
}

}  // namespace app_manager::service
