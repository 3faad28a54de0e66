#include "service_registration.h"

#include <component/plk/exceptions.h>
#include <tvo/service_locator.h>
#include <xo/handle.h>

namespace cert_approver {

ServiceRegistration::ServiceRegistration(const char* connectionId)
    : m_handle(ServiceLocatorRegister(connectionId, nullptr, 0, &m_identifier))
{
    ZIN_CHECK(m_handle != XoInvalidHandle, "Cannot register service " << connectionId);
}

ServiceRegistration::~ServiceRegistration()
{
    ServiceLocatorUnregister(m_identifier);
}

}  // namespace cert_approver
