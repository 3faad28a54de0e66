#pragma once

#include <memory>

#include <component/app_manager/i_application_watchdog.h>

#include "../idl/application_watchdog.h"

namespace app_manager::proxy {

/// Pings the manager.
class ApplicationWatchdog final : public IApplicationWatchdog
{
public:
    using Generated = tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationWatchdog;
    using GeneratedPtr = std::unique_ptr<Generated, tvoipc_detail::api_v1::IpcDeleter>;

    /// @throws zin::CheckFailedException  for a null proxy
    explicit ApplicationWatchdog(GeneratedPtr proxy);

    /// Ends the process when the manager is gone: an application does not outlive its manager.
    int Ping(std::string_view appName) noexcept override;

private:
    GeneratedPtr m_proxy;
};

}  // namespace app_manager::proxy
