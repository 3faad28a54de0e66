#pragma once

#include <memory>

#include <component/app_manager/i_application_controller.h>

#include "../idl/application_controller.h"

namespace app_manager::proxy {

/// Sends the reports to the manager.
class ApplicationController final : public IApplicationController
{
public:
    using Generated = tvoipc::idl::stdcpp_v1::vx::app_manager::ApplicationController;
    using GeneratedPtr = std::unique_ptr<Generated, tvoipc_detail::api_v1::IpcDeleter>;

    /// @throws zin::CheckFailedException  for a null proxy
    explicit ApplicationController(GeneratedPtr proxy);

    int StartApplication(std::string_view appName) override;
    int ReadyToInitialize(std::string_view appName) override;
    int ReadyToShowUI(std::string_view appName) override;
    int FinishWithInternalError(std::string_view appName,
                                std::string_view error,
                                std::string_view description) override;
    int StateChanged(std::string_view appName, long state) override;

private:
    GeneratedPtr m_proxy;
};

}  // namespace app_manager::proxy
