#include "create_ipc_connection_manager.h"

#include <fmt/format.h>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <shared/ipc_utils/publish.h>

namespace cert_approver {

std::unique_ptr<tvo::ipc::ConnectionManager> CreateIpcConnectionManager(const char* interfaceName,
                                                                        const char* serviceName,
                                                                        int riid,
                                                                        unsigned int handle)
{
    constexpr unsigned int Group = 1;
    constexpr unsigned int ListenTimeoutMs = 1000;

    ZIN_CHECK(::shared::ipc_utils::TryPublishService(interfaceName, serviceName),
              fmt::format(
                  "Failed to publish service '{}' with interface '{}'", serviceName, interfaceName)
                  .c_str());
    TVO_LOG_INFO("Published service '{}' with interface '{}'", serviceName, interfaceName);

    tvo::ipc::ConnectionManager::Config config;
    config.plan[serviceName] = {.riid = static_cast<unsigned int>(riid), .group = Group};
    config.groupHandles[Group] = handle;
    config.listenTimeout = ListenTimeoutMs;
    return std::make_unique<tvo::ipc::ConnectionManager>(config);
}

}  // namespace cert_approver
