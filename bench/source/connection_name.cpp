#include "connection_name.h"

#include <stdexcept>

#include <tvo/service_locator.h>
#include <tvo/task.h>
#include <xo/handle.h>

namespace tvo::bench {

std::string UnusedConnectionName()
{
    static int number = 0;
    return "bench_" + std::to_string(++number);
}

std::uint32_t ServeConnectionName(const std::string& name)
{
    const std::uint32_t self = TvoTaskGetSelf();
    TvoTaskConnectToService(self, self, name.c_str());
    std::uint64_t identifier = 0;
    const std::uint32_t endpoint = ServiceLocatorRegister(name.c_str(), nullptr, 0, &identifier);
    if (endpoint == XoInvalidHandle)
    {
        throw std::runtime_error("the name '" + name + "' cannot be served");
    }
    return endpoint;
}

Connection::Connection(const std::string& name) : m_handle(ServiceLocatorConnect(name.c_str()))
{
    if (m_handle == XoInvalidHandle)
    {
        throw std::runtime_error("nobody serves the name '" + name + "'");
    }
}

Connection::~Connection()
{
    XoHandleClose(m_handle);
}

}  // namespace tvo::bench
