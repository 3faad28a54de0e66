#include "terminal_services.h"

#include <memory>

#include <tvo/service_list.h>
#include <xo/result.h>

#include "../failure.h"

namespace tvoctl {
namespace {

std::optional<std::uint32_t> Known(std::uint32_t count)
{
    return count != TvoUnknownCount ? std::optional(count) : std::nullopt;
}

PublishedService ToPublished(const TvoService& service)
{
    return {service.name,
            service.interfaceName,
            service.entity,
            service.isStatic == 1,
            service.pid,
            service.uid,
            Known(service.waiting),
            Known(service.served)};
}

}  // namespace

std::vector<PublishedService> ListTerminalServices()
{
    STvoServiceList* read = nullptr;
    if (TvoServiceListRead(&read) != XoOk)
    {
        throw Failure(ExitStatus::NoService, "the rendezvous folder cannot be used");
    }
    const std::unique_ptr<STvoServiceList, void (*)(STvoServiceList*)> list(read,
                                                                            &TvoServiceListRelease);
    std::vector<PublishedService> services;
    for (std::uint32_t i = 0; i < TvoServiceListSize(list.get()); ++i)
    {
        services.push_back(ToPublished(TvoServiceListGet(list.get(), i)));
    }
    return services;
}

}  // namespace tvoctl
