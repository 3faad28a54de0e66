#include "front/watchdog_handler.h"

#include <component/app_manager/tvo_ipc/application_watchdog.h>

#include "front/reporter.h"

namespace app_manager::service {

Outcome WatchdogHandler::Serve(const ServiceCall& call)
{
    using PingRequest = vx_app_manager_ApplicationWatchdog_Ping_req;
    const NamedRequest<PingRequest> request(call);
    if (call.request->mid != PingRequest::Mid || !request)
    {
        return Outcome::Reject;
    }
    const Reporter reporter(m_terminal, *request.name, call.caller.pid);
    call.Response<PingRequest::Response>().result = reporter.refusal;
    if (reporter.child != nullptr)
    {
        reporter.child->Supervision().OnPing(m_terminal.Now());
        reporter.child->Commands()->AnnounceAgain();
    }
    return Outcome::Answer;
}

}  // namespace app_manager::service
