#pragma once

#include <memory>

#include <shared/common/tvo/ipc/connection_manager.h>

namespace cert_approver {

/// Publishes the service and makes the manager that accepts its clients onto the endpoint. The
/// manager is not started, and the endpoint stays the caller's.
/// @param handle  the endpoint on which requests arrive
/// @throws zin::CheckFailedException  the service cannot be published
std::unique_ptr<tvo::ipc::ConnectionManager> CreateIpcConnectionManager(const char* interfaceName,
                                                                        const char* serviceName,
                                                                        int riid,
                                                                        unsigned int handle);

}  // namespace cert_approver
