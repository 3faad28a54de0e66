#include "publish_entity.h"

#include <iterator>

#include <component/cert_approver/tvo_ipc/service_names.h>
#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <tvo/task.h>

namespace cert_approver {

namespace {

constexpr TvoEndpointDescription EntityEndpoints[] = {
    {.index = 0,
     .name = service_names::WaylandClient,
     .shortName = service_names::WaylandClient,
     .interfaceName = service_names::WaylandClientType},
};

constexpr TvoEndpointDescription ComponentEndpoints[] = {
    {.index = service_names::Riid,
     .name = service_names::Endpoint,
     .shortName = service_names::EndpointShortName,
     .interfaceName = service_names::EndpointInterface},
};

constexpr TvoComponentDescription Components[] = {
    {.name = service_names::Component,
     .type = service_names::ComponentType,
     .endpoints = ComponentEndpoints,
     .endpointCount = std::size(ComponentEndpoints)},
};

constexpr TvoComponentTree Tree = {.entity = service_names::Entity,
                                   .endpoints = EntityEndpoints,
                                   .endpointCount = std::size(EntityEndpoints),
                                   .components = Components,
                                   .componentCount = std::size(Components)};

}  // namespace

void PublishEntity()
{
    const auto self = TvoTaskGetSelf();
    const int treeCode = TvoTaskSetComponentTree(self, &Tree);
    ZIN_CHECK_RESULT(treeCode, "entity: can not set up component tree" << treeCode);
    const int connectCode = TvoTaskConnectToService(self, self, service_names::ConnectionId);
    // The code follows in decimal.
    ZIN_CHECK_RESULT(connectCode, "entity: can not connect to themself, rc=0x" << connectCode);
    TVO_LOG_INFO("entity: Execution Manager stub created. ConnId: {}", service_names::ConnectionId);
}

}  // namespace cert_approver
