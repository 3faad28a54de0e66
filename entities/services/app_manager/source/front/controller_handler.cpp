#include "front/controller_handler.h"

#include <component/app_manager/tvo_ipc/application_controller.h>
#include <component/plk/result_codes.h>

#include "front/reporter.h"

namespace app_manager::service {
namespace {

using StartRequest = vx_app_manager_ApplicationController_StartApplication_req;
using InitializeRequest = vx_app_manager_ApplicationController_ReadyToInitialize_req;
using ShowRequest = vx_app_manager_ApplicationController_ReadyToShowUI_req;
using ErrorRequest = vx_app_manager_ApplicationController_FinishWithInternalError_req;
using StateRequest = vx_app_manager_ApplicationController_StateChanged_req;

}  // namespace

Outcome ControllerHandler::Serve(const ServiceCall& call)
{
    switch (call.request->mid)
    {
        case StartRequest::Mid:
            return StartApplication(call);
        case InitializeRequest::Mid:
            return Take<InitializeRequest>(
                call, [](SupervisedChild& child, const auto&) { child.OnInitialized(); });
        case ShowRequest::Mid:
            return Take<ShowRequest>(call,
                                     [this](SupervisedChild& child, const auto&)
                                     { child.OnReady(m_terminal.Now()); });
        case ErrorRequest::Mid:
            return FinishWithInternalError(call);
        case StateRequest::Mid:
            return Take<StateRequest>(call,
                                      [this](SupervisedChild& child, const StateRequest& request)
                                      { child.OnStateChanged(m_terminal.Now(), request.state); });
        default:
            return Outcome::Reject;
    }
}

template <class Request, class Report>
Outcome ControllerHandler::Take(const ServiceCall& call, const Report& report)
{
    const NamedRequest<Request> request(call);
    if (!request)
    {
        return Outcome::Reject;
    }
    const Reporter reporter(m_terminal, *request.name, call.caller.pid);
    call.Response<typename Request::Response>().result = reporter.refusal;
    if (reporter.child != nullptr)
    {
        report(reporter.child->Supervision(), *request.record);
    }
    return Outcome::Answer;
}

Outcome ControllerHandler::FinishWithInternalError(const ServiceCall& call)
{
    const auto* const request = call.Request<ErrorRequest>();
    const auto error = request != nullptr ? TextIn(call, request->error) : std::nullopt;
    const auto description = request != nullptr ? TextIn(call, request->description) : std::nullopt;
    if (!error || !description)
    {
        return Outcome::Reject;
    }
    return Take<ErrorRequest>(call,
                              [&](SupervisedChild& child, const auto&)
                              { child.OnInternalError(m_terminal.Now(), *error, *description); });
}

Outcome ControllerHandler::StartApplication(const ServiceCall& call)
{
    const NamedRequest<StartRequest> request(call);
    if (!request)
    {
        return Outcome::Reject;
    }
    call.Response<StartRequest::Response>().result = Start(*request.name);
    return Outcome::Answer;
}

int ControllerHandler::Start(std::string_view name)
{
    ManagedChild* const child = m_terminal.Find(name);
    if (child == nullptr || child->Supervision().Config().kind != control::Kind::Application)
    {
        return plk::codes::NotFound;
    }
    if (m_terminal.IsStopping())
    {
        return plk::codes::InvalidState;
    }
    child->Supervision().Start(m_terminal.Now());
    return 0;
}

}  // namespace app_manager::service
