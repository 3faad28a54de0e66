#include "app_watchdog_proxy.h"

#include <utility>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/result_codes.h>

#include "to_bytes.h"

namespace app_manager::proxy {

ApplicationWatchdog::ApplicationWatchdog(GeneratedPtr proxy) : m_proxy(std::move(proxy))
{
    ZIN_CHECK(m_proxy, "generated ApplicationWatchdog proxy is nullptr!");
}

int ApplicationWatchdog::Ping(std::string_view appName) noexcept
{
    TVO_LOG_DEBUG("Proxy: ApplicationWatchdog::Ping {}", appName);
    int result = plk::codes::Ok;
    m_proxy->Ping(ToBytes(appName), result);
    return result;
}

}  // namespace app_manager::proxy
