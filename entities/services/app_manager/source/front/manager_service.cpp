#include "front/manager_service.h"

#include <iterator>

#include <component/app_manager/tvo_ipc/application_commands.h>
#include <component/app_manager/tvo_ipc/application_controller.h>
#include <component/app_manager/tvo_ipc/application_watchdog.h>
#include <component/app_manager/tvo_ipc/service_names.h>
#include <component/plk/exceptions.h>
#include <tvo/task.h>

namespace app_manager::service {
namespace {

using tvo::service::IServiceLoop;
using tvo::service::ServedInterface;

constexpr char EntityName[] = "vx.vdi.AppManager";

constexpr TvoEndpointDescription Endpoint(std::uint16_t riid,
                                          const char* name,
                                          const char* interfaceName)
{
    return {.index = riid, .name = name, .shortName = name, .interfaceName = interfaceName};
}

constexpr TvoEndpointDescription Endpoints[] = {
    Endpoint(service_names::ControllerRiid, service_names::Controller, service_names::Type),
    Endpoint(service_names::CommandsRiid, service_names::Commands, service_names::Type),
    Endpoint(service_names::WatchdogRiid, service_names::Watchdog, service_names::Type),
    Endpoint(control::Riid, control::ServiceName, control::InterfaceName),
};

void PublishEntity()
{
    const TvoComponentTree tree = {.entity = EntityName,
                                   .endpoints = Endpoints,
                                   .endpointCount = std::size(Endpoints),
                                   .components = nullptr,
                                   .componentCount = 0};
    ZIN_CHECK_RESULT(TvoTaskSetComponentTree(TvoTaskGetSelf(), &tree),
                     "Cannot set up the component tree");
}

/// One of the applications' interfaces.
ServedInterface ForApplications(const char* service, std::uint16_t riid)
{
    ServedInterface served;
    served.name = service;
    served.interfaceName = service_names::Type;
    served.riid = riid;
    served.largestRequest = sizeof(vx_app_manager_name_req);
    served.largestResponse = sizeof(vx_app_manager_result_res);
    served.requestArena = limits::NameArena;
    return served;
}

ServedInterface Controller()
{
    auto served = ForApplications(service_names::Controller, service_names::ControllerRiid);
    served.largestRequest =
        sizeof(vx_app_manager_ApplicationController_FinishWithInternalError_req);
    served.requestArena = limits::ErrorArena;
    return served;
}

ServedInterface Commands()
{
    auto served = ForApplications(service_names::Commands, service_names::CommandsRiid);
    served.largestResponse = sizeof(vx_app_manager_ApplicationCommands_GetCommand_res);
    return served;
}

ServedInterface Control()
{
    ServedInterface served;
    served.name = control::ServiceName;
    served.interfaceName = control::InterfaceName;
    served.riid = control::Riid;
    served.largestRequest = sizeof(control::CommandRequest);
    served.largestResponse = sizeof(control::StatusResponse);
    served.requestArena = control::limits::RequestArena;
    served.responseArena = control::limits::ResponseArena;
    return served;
}

template <class Handler>
void Serve(IServiceLoop& loop, const ServedInterface& served, Handler& handler)
{
    loop.Serve(served,
               {.serve = [&handler](const ServiceCall& call) { return handler.Serve(call); },
                .admit = {},
                .connectionEnded = {}});
}

}  // namespace

ManagerService::ManagerService(IServiceLoop& loop, Terminal& terminal)
    : m_controller(terminal), m_commands(terminal), m_watchdog(terminal), m_control(terminal)
{
    PublishEntity();
    Serve(loop, Controller(), m_controller);
    Serve(loop, Commands(), m_commands);
    Serve(loop, ForApplications(service_names::Watchdog, service_names::WatchdogRiid), m_watchdog);
    Serve(loop, Control(), m_control);
}

}  // namespace app_manager::service
